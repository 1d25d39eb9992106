#pragma once

#include <chrono>

#include "ChildProcess.h"
#include "Desktop.h"
#include "Heartbeat.h"

namespace tessel::desktop {

/// How long the main threads of the program and of an idle process of the same time and priority took at most
/// to answer, and how long at most after what was spent waiting for a processor is taken off, so that it
/// means something on a busy machine, too. What the program takes beyond the idle process is what it is to
/// blame for.
struct HoldUp {
    std::chrono::microseconds program{};
    std::chrono::microseconds idle{};
    std::chrono::microseconds programAtWork{};
    std::chrono::microseconds idleAtWork{};
    /// How long at most each main thread itself ran before it answered.
    std::chrono::microseconds programRun{};
    std::chrono::microseconds idleRun{};
};

/// Watches, from its construction on, how long the program's main thread is held up.
class HoldUpWatch {
public:
    /// `program` is the process of the program on this desktop, which has a session bus.
    HoldUpWatch(Desktop& desktop, pid_t program);

    /// Ends the watch. To be called once; throws `DesktopFailure` if the program has stopped answering.
    HoldUp finish();

private:
    ChildProcess idleProgram_;
    Heartbeat program_;
    Heartbeat idle_;
};

} // namespace tessel::desktop
