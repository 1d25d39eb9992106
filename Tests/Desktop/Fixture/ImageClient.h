#pragma once

#include <filesystem>
#include <string>

#include "Desktop.h"
#include "SelectionWatch.h"

namespace tessel::desktop {

/// A GTK program that copies pictures, and shows the picture that is pasted into it.
class ImageClient {
public:
    /// Starts it under a window title, and returns when its window has the keyboard focus.
    ImageClient(Desktop& desktop, const std::string& title);

    xcb_window_t window() const { return window_; }
    void activate();

    /// Copies the picture in a PNG file to the clipboard, the way GTK programs do.
    void copy(const std::filesystem::path& file);
    /// The width, height and a checksum over all pixels of the picture in a file, as this program sees it.
    std::string describe(const std::filesystem::path& file);
    /// The same of the picture that the next paste brings.
    std::string waitForPastedPicture(Deadline deadline = Deadline());

private:
    std::string ask(const std::string& request);

    Desktop& desktop_;
    ChildProcess process_;
    SelectionWatch clipboard_;
    xcb_window_t window_;
};

} // namespace tessel::desktop
