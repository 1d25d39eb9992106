#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "Desktop.h"
#include "SelectionWatch.h"

namespace tessel::desktop {

enum class TextClientKind {
    gtk, ///< A text view of GTK 3.
    qt,  ///< A text edit of Qt.
    gtkEntry,
    qtLineEdit,
    gtk4,      ///< A text view of GTK 4. Only where the tests beside applications are built.
    gtk4Entry, ///< The same of an entry.
};

/// For the names of tests.
std::ostream& operator<<(std::ostream& stream, TextClientKind kind);

/// An editor, or a field for one line, on the desktop that tells exactly what is in it, as real programs have
/// them.
class TextClient {
public:
    /// Starts it, and returns when its window has the keyboard focus.
    TextClient(Desktop& desktop, TextClientKind kind);

    /// Opens a second window of the same program, which has to be a text edit of Qt; it gets the focus.
    TextClient openSecondWindow();

    /// Its top-level window.
    xcb_window_t window() const { return window_; }
    ChildProcess& process() { return *process_; }
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
    TextClient(Desktop& desktop, std::shared_ptr<ChildProcess> process, std::string prefix,
               const std::string& title);
    std::string ask(const std::string& request);

    Desktop& desktop_;
    std::shared_ptr<ChildProcess> process_;
    /// What a line for this window begins with.
    std::string prefix_;
    SelectionWatch clipboard_;
    xcb_window_t window_;
};

} // namespace tessel::desktop
