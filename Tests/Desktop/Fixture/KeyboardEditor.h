#pragma once

#include <memory>
#include <optional>
#include <string>

#include "ChildProcess.h"
#include "Desktop.h"

namespace tessel::desktop {

/// The text editor Mousepad with one file, used by keys alone as a person does: what is in it is seen by
/// saving.
class KeyboardEditor {
public:
    static bool isInstalled();

    explicit KeyboardEditor(Desktop& desktop);

    void activate();
    bool hasFocus();
    /// Presses Ctrl+S until the file holds `expected`; throws `DesktopFailure` with what it holds instead.
    void waitForSavedText(const std::string& expected);

private:
    std::string savedText() const;

    Desktop& desktop_;
    std::filesystem::path file_;
    ChildProcess process_;
    xcb_window_t window_;
};

} // namespace tessel::desktop
