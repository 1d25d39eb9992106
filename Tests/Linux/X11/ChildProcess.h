#pragma once

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tessel {

/// A program that a test starts, and ends with.
class ChildProcess {
public:
    /// Starts `arguments[0]`, found through `PATH`. The argument "%fd" is replaced by a descriptor that the
    /// program may write a line to.
    explicit ChildProcess(std::vector<std::string> arguments);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The first line that the program writes to the descriptor that replaced "%fd". Empty: it wrote none.
    std::string firstLine();

private:
    pid_t pid_ = -1;
    int pipe_ = -1;
};

/// Runs a program to its end. True: it succeeded.
bool runProgram(std::vector<std::string> arguments);

} // namespace tessel
