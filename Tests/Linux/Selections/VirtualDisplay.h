#pragma once

#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tessel {

/// A program that runs beside the test; it is ended, by its number, with this object.
class ChildProcess {
public:
    /// Runs `arguments[0]` on `display`. Its standard output can be read; `input` is what it reads, all at
    /// once.
    static std::unique_ptr<ChildProcess> start(const std::vector<std::string>& arguments,
                                               const std::string& display, const std::string& input = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// One line of its output; empty at the end of it.
    std::string readLine();
    /// Everything until the end of its output.
    std::string readAll();
    /// Its exit status; waits for its end.
    int wait();
    void kill(int signal);

private:
    ChildProcess(pid_t process, int output)
        : process_(process)
        , output_(output)
    {}
    pid_t process_;
    int output_;
    bool hasEnded_ = false;
};

/// An X server of the test's own, without a screen.
class VirtualDisplay {
public:
    VirtualDisplay();

    const std::string& name() const { return name_; }
    /// As of a server that crashes.
    void kill();

private:
    std::unique_ptr<ChildProcess> server_;
    std::string name_;
};

} // namespace tessel
