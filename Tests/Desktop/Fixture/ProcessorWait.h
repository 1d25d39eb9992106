#pragma once

#include <sys/types.h>

#include <chrono>

#include "FileDescriptor.h"

namespace tessel::desktop {

/// How long a thread has been ready to run and waited for a processor that others had, in all: the machine's
/// doing and not the thread's (`schedstat` of the kernel).
class ProcessorWait {
public:
    /// Of the main thread of a process. Throws `DesktopFailure` if the kernel does not tell.
    static ProcessorWait ofMainThread(pid_t process);
    /// Of the calling thread.
    static ProcessorWait ofThisThread();

    /// Zero once the thread is gone.
    std::chrono::nanoseconds total() const { return times().waiting; }
    /// How long it has had a processor, in all. Zero once it is gone.
    std::chrono::nanoseconds run() const { return times().running; }

private:
    struct Times {
        std::chrono::nanoseconds running{};
        std::chrono::nanoseconds waiting{};
    };
    Times times() const;
    explicit ProcessorWait(FileDescriptor statistics);

    FileDescriptor statistics_;
};

} // namespace tessel::desktop
