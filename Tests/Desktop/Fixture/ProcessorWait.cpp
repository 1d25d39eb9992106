#include "ProcessorWait.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <string>

#include "Deadline.h"

namespace tessel::desktop {

namespace {

FileDescriptor openStatistics(const std::string& thread)
{
    const std::string file = "/proc/" + thread + "/schedstat";
    FileDescriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (!descriptor.isOpen())
        throw DesktopFailure("cannot read " + file);
    return descriptor;
}

} // namespace

ProcessorWait::ProcessorWait(FileDescriptor statistics)
    : statistics_(std::move(statistics))
{}

ProcessorWait ProcessorWait::ofMainThread(pid_t process)
{
    const auto name = std::to_string(process);
    return ProcessorWait(openStatistics(name + "/task/" + name));
}

ProcessorWait ProcessorWait::ofThisThread()
{
    return ProcessorWait(openStatistics("thread-self"));
}

ProcessorWait::Times ProcessorWait::times() const
{
    std::array<char, 96> text{};
    if (::pread(statistics_.get(), text.data(), text.size() - 1, 0) <= 0)
        return {};
    long long running = 0;
    long long waiting = 0;
    if (std::sscanf(text.data(), "%lld %lld", &running, &waiting) != 2)
        return {};
    return {std::chrono::nanoseconds(running), std::chrono::nanoseconds(waiting)};
}

} // namespace tessel::desktop
