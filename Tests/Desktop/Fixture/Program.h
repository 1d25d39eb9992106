#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "ChildProcess.h"
#include "Desktop.h"
#include "Heartbeat.h"
#include "Panel.h"

namespace tessel::desktop {

/// Tessel Clipboard, running on a desktop.
class Program {
public:
    /// The program's own name on the session bus, and its object.
    static BusAddress busAddress();
    /// The executable under test: `TESSEL_CLIPBOARD_PROGRAM` of the environment, else the one of this build.
    static std::filesystem::path executable();
    /// Runs the executable with one option, to its end.
    static CommandResult runOption(Desktop& desktop, const std::string& option);
    /// The parts of a standard error output in which a sanitizer complains; empty if there are none.
    static std::string sanitizerComplaint(const std::string& errorOutput);

    /// Starts it and returns when it is ready: it has its hot key, and answers on the session bus if there is
    /// one.
    explicit Program(Desktop& desktop, const std::vector<std::string>& arguments = {});
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    ChildProcess& process() { return process_; }
    Panel& panel() { return panel_; }

    /// Presses and releases the hot key, Super+Shift+V.
    /// Returns when the program, which answers on the session bus, has read every key and event that the
    /// server has sent until now.
    void waitUntilItHasRead();
    void pressHotKey(std::chrono::milliseconds hold = {});
    /// Opens the panel by the hot key, and returns when it can be used.
    WindowFacts openPanel();
    /// Closes the open panel by Escape.
    void closePanel();
    /// Ends it by `--quit`, or by a signal where there is no session bus, and returns how it ended.
    ExitStatus quit();

private:
    bool isReady();

    Desktop& desktop_;
    ChildProcess process_;
    Panel panel_;
};

} // namespace tessel::desktop
