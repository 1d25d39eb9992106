#include "VirtualDisplay.h"

namespace tessel::desktop {

namespace {

std::vector<std::string> serverCommand(Extent screen)
{
    const auto mode = std::to_string(screen.width) + "x" + std::to_string(screen.height) + "x24";
    // The server picks a free number and tells it; it stays up when its last client leaves.
    return {"Xvfb", "-displayfd", "1", "-noreset", "-nolisten", "tcp", "-dpi", "96", "-screen", "0", mode};
}

} // namespace

VirtualDisplay::VirtualDisplay(Extent screen, const Environment& environment)
    : server_(serverCommand(screen), environment)
    , name_(":" + server_.waitForLine(""))
{}

} // namespace tessel::desktop
