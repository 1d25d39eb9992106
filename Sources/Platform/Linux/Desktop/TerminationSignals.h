#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace tessel {

/// The signals by which a session, a service manager or a terminal asks a process to end: SIGTERM, SIGHUP and
/// SIGINT. Each of them is obeyed on the main thread the first time, and ends the process at once the second
/// time.
///
/// At most one object of this type exists at a time.
class TerminationSignals {
public:
    /// Runs `requested` on the main loop after a signal has come. Without a descriptor to spare the signals
    /// keep their usual effect.
    explicit TerminationSignals(std::function<void()> requested);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    int descriptor_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace tessel
