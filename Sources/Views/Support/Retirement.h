#pragma once

#include <QtWidgets/QWidget>

namespace tessel {

/// Takes a window off the screen at once, and deletes it on the next turn, so that a view may let its own
/// window go from inside a handler. For `std::unique_ptr`.
struct Retirement {
    void operator()(QWidget* window) const
    {
        window->hide();
        window->deleteLater();
    }
};

} // namespace tessel
