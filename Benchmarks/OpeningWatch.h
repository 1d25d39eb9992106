#pragma once

#include <chrono>
#include <vector>

#include "Desktop.h"

namespace tessel::bench {

/// Measures from a press of the hot key to the painted window beside the pointer. What has been painted is
/// announced by the DAMAGE extension and then read from the screen, so that a window counts when it can be
/// seen.
class OpeningWatch {
public:
    /// What has to be seen of a window of the panel's size before it counts as painted.
    enum class Painted {
        anything,    ///< Its middle is not the empty desktop any more.
        title,       ///< And the white title of the panel is there.
        titleAndRow, ///< And the white text of its first entry.
    };

    OpeningWatch(desktop::Desktop& desktop, Painted painted);

    /// Presses the hot key with the pointer at `pointerPlace`, and returns how long it took until the window
    /// was painted. The keys are up again on return. Throws `DesktopFailure` if no window appears.
    std::chrono::microseconds measureOpening();

    static constexpr desktop::Place pointerPlace{300, 200};

private:
    void awaitQuiet();
    bool isPainted() const;
    bool hasWhite(const desktop::Frame& frame) const;

    desktop::Desktop& desktop_;
    Painted painted_;
    desktop::XConnection connection_;
    desktop::Pixels pixels_;
};

/// Figures of many openings, in milliseconds.
struct OpeningFigures {
    double median = 0;
    double percentile99 = 0;
};

OpeningFigures figures(std::vector<std::chrono::microseconds> openings);

} // namespace tessel::bench
