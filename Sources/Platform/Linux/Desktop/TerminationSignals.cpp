#include "Desktop/TerminationSignals.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>

namespace tessel {

namespace {

constexpr std::array endingSignals = {SIGTERM, SIGHUP, SIGINT};
constexpr int noDescriptor = -1;

/// A signal handler is told nothing but the signal's number, and may do little more than write.
std::atomic<int> wakeUpDescriptor = noDescriptor;
static_assert(std::atomic<int>::is_always_lock_free);

void wakeMainLoop(int)
{
    const int error = errno;
    const std::uint64_t one = 1;
    // A full counter has woken the loop already.
    [[maybe_unused]] const auto written = ::write(wakeUpDescriptor, &one, sizeof one);
    errno = error;
}

void setHandler(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    // Whoever asks twice is not kept waiting.
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    ::sigemptyset(&action.sa_mask);
    ::sigaction(signal, &action, nullptr);
}

bool isIgnored(int signal)
{
    struct sigaction action = {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> requested)
    : descriptor_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (descriptor_ == noDescriptor)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [descriptor = descriptor_, requested = std::move(requested)] {
                         std::uint64_t count = 0;
                         if (::read(descriptor, &count, sizeof count) == sizeof count)
                             requested();
                     });
    wakeUpDescriptor = descriptor_;
    // What the starter of the process has set aside, as `nohup` does, stays so.
    for (const int signal : endingSignals)
        if (!isIgnored(signal))
            setHandler(signal, wakeMainLoop);
}

TerminationSignals::~TerminationSignals()
{
    if (descriptor_ == noDescriptor)
        return;
    for (const int signal : endingSignals)
        if (!isIgnored(signal))
            setHandler(signal, SIG_DFL);
    wakeUpDescriptor = noDescriptor;
    notifier_.reset();
    ::close(descriptor_);
}

} // namespace tessel
