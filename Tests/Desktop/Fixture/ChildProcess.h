#pragma once

#include <sys/types.h>

#include <chrono>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Deadline.h"
#include "Environment.h"
#include "FileDescriptor.h"

namespace tessel::desktop {

/// How a process ended.
struct ExitStatus {
    /// The exit code, or the number of the signal that ended the process.
    int number = 0;
    bool bySignal = false;

    bool succeeded() const { return !bySignal && number == 0; }
    std::string description() const;
};

/// A process that this one started, in a process group of its own. It ends with this object at the latest, by
/// its own process id, and with this process if that should die.
class ChildProcess {
public:
    /// Starts `command` (a program, looked up in this process's PATH, and its arguments). Throws
    /// `DesktopFailure` if that is impossible.
    ChildProcess(std::vector<std::string> command, const Environment& environment);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t pid() const { return pid_; }
    /// The program's file name, for messages.
    const std::string& name() const { return name_; }

    /// Writes a line to its standard input.
    void writeLine(std::string_view line);
    /// The next line of its standard output, without the line feed. None if the process closed its output
    /// before; throws `DesktopFailure`, saying what was awaited, when the deadline passes.
    std::optional<std::string> nextLine(std::string_view awaited, Deadline deadline);
    /// The first line that begins with `prefix`; earlier lines are dropped.
    std::string waitForLine(std::string_view prefix, Deadline deadline = Deadline());
    /// Everything that it has written to its standard error so far.
    std::string errorOutput() const;

    bool isRunning();
    /// Waits for its end; throws `DesktopFailure` when the deadline passes.
    ExitStatus waitForExit(Deadline deadline = Deadline());
    /// Sends a signal to this one process; nothing happens if it has ended.
    void signal(int number);
    /// Ends this one process as a crash does, and returns when it is gone.
    void kill();
    /// Asks it to end, insists after a moment, and cleans up its process group.
    void end();

private:
    void spawn(std::vector<std::string>& command, const Environment& environment);
    bool readOutput();
    bool awaitExit(std::chrono::milliseconds patience);

    std::string name_;
    pid_t pid_ = 0;
    FileDescriptor process_;
    FileDescriptor input_;
    FileDescriptor output_;
    FileDescriptor error_;
    std::string partialLine_;
    std::deque<std::string> lines_;
    std::optional<ExitStatus> status_;
};

} // namespace tessel::desktop
