#include "KeyboardEditor.h"

#include <fstream>
#include <sstream>

#include "Executables.h"

namespace tessel::desktop {

namespace {

constexpr const char* programName = "mousepad";

/// Saving is asked for again after this long.
constexpr std::chrono::milliseconds savePatience{1'500};

bool isMousepad(const WindowFacts& window)
{
    return window.isViewable && window.instanceName == programName;
}

} // namespace

bool KeyboardEditor::isInstalled()
{
    return findExecutable(programName).has_value();
}

KeyboardEditor::KeyboardEditor(Desktop& desktop)
    : desktop_(desktop)
    , file_(desktop.directory().write("home/note.txt", ""))
    , process_({programName, "--disable-server", file_.string()}, desktop.environment())
    , window_(desktop.windows().waitFor("the window of the editor", isMousepad).window)
{
    activate();
}

void KeyboardEditor::activate()
{
    desktop_.windows().activate(window_);
}

bool KeyboardEditor::hasFocus()
{
    return desktop_.windows().hasFocus(window_);
}

void KeyboardEditor::waitForSavedText(const std::string& expected)
{
    const Deadline deadline;
    while (true) {
        desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_s);
        try {
            desktop_.connection().waitUntil(
                "the expected text in the editor's file", [&] { return savedText() == expected; },
                Deadline(savePatience));
            return;
        } catch (const DesktopFailure& failure) {
            if (deadline.hasPassed())
                throw DesktopFailure(std::string(failure.what()) + ": expected \"" + expected +
                                     "\", it has \"" + savedText() + "\"");
        }
    }
}

std::string KeyboardEditor::savedText() const
{
    const std::ifstream stream(file_, std::ios::binary);
    std::ostringstream contents;
    contents << stream.rdbuf();
    return contents.str();
}

} // namespace tessel::desktop
