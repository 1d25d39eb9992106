#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "Desktop.h"
#include "SelectionWatch.h"

namespace tessel::desktop {

enum class TextClientKind { gtk, qt };

/// For the names of tests.
std::ostream& operator<<(std::ostream& stream, TextClientKind kind);

/// An editor on the desktop that tells exactly what is in it: a GTK text view or a Qt text edit, as real
/// programs have them.
class TextClient {
public:
    /// Starts it, and returns when its window has the keyboard focus.
    TextClient(Desktop& desktop, TextClientKind kind);

    /// Its top-level window.
    xcb_window_t window() const { return window_; }
    ChildProcess& process() { return process_; }
    /// Gives it the keyboard focus, as a click on a task bar does.
    void activate();

    std::string text();
    void setText(const std::string& text);
    /// Waits until exactly this text is in it.
    void waitForText(const std::string& expected, Deadline deadline = Deadline());
    /// How many times the keys for pasting have reached it.
    int pasteCount();
    bool hasFocus();

    /// Puts a text into it, selects all of it by Ctrl+A and copies it by Ctrl+C.
    void copyByKeys(const std::string& text);
    void pressPasteKeys();

private:
    std::string ask(const std::string& request);

    Desktop& desktop_;
    ChildProcess process_;
    SelectionWatch clipboard_;
    xcb_window_t window_;
};

} // namespace tessel::desktop
