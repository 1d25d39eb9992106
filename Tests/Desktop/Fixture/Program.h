#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "ChildProcess.h"
#include "Desktop.h"
#include "Heartbeat.h"
#include "Panel.h"

namespace tessel::desktop {

/// A hot key of the program: what its user holds while pressing the V key, and the mask of the core protocol
/// for that.
struct HotKey {
    std::vector<KeySymbol> modifiers;
    std::uint16_t mask;
};

inline const HotKey superShiftV = {{XKB_KEY_Super_L, XKB_KEY_Shift_L}, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT};
inline const HotKey controlShiftV = {{XKB_KEY_Control_L, XKB_KEY_Shift_L},
                                     XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT};
inline const HotKey superAltV = {{XKB_KEY_Super_L, XKB_KEY_Alt_L}, XCB_MOD_MASK_4 | XCB_MOD_MASK_1};

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

    /// Starts it and returns when it is ready: somebody has the hot key that its settings name, and it
    /// answers on the session bus if there is one.
    explicit Program(Desktop& desktop, const std::vector<std::string>& arguments = {},
                     HotKey hotKey = superShiftV);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    ChildProcess& process() { return process_; }
    Panel& panel() { return panel_; }

    /// Returns when the program, which answers on the session bus, has read every key and event that the
    /// server has sent until now.
    void waitUntilItHasRead();
    /// Presses and releases the hot key.
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
    HotKey hotKey_;
    ChildProcess process_;
    Panel panel_;
};

} // namespace tessel::desktop
