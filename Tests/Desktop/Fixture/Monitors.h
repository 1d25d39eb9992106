#pragma once

#include <string>
#include <vector>

#include "Desktop.h"

namespace tessel::desktop {

/// The monitors of a desktop's screen (RandR 1.5), where a virtual server has only one of its own: parts of
/// the screen that are called monitors, as the halves of a wide one are.
class Monitors {
public:
    struct Monitor {
        std::string name;
        Frame frame;
    };
    enum class Primary { none, first };

    explicit Monitors(Desktop& desktop);

    /// Replaces all monitors by these, of which there must be one. The first of them can be the primary one.
    void set(const std::vector<Monitor>& monitors, Primary primary = Primary::none);
    /// Gives the whole screen another extent, not larger than the one that it began with, as one monitor.
    void resizeScreen(Extent extent);
    /// Turns the only output off, so that there is no monitor at all, and on again.
    void switchOff();
    void switchOn();

private:
    void xrandr(std::vector<std::string> arguments);

    Desktop& desktop_;
    std::vector<std::string> names_;
};

} // namespace tessel::desktop
