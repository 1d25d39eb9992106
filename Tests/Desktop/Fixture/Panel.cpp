#include "Panel.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tessel::desktop {

Panel::Panel(Desktop& desktop, pid_t program)
    : desktop_(desktop)
    , program_(program)
{}

std::optional<WindowFacts> Panel::find() const
{
    const auto pixels = static_cast<int>(std::lround(width * desktop_.scale()));
    return desktop_.windows().find([&](const WindowFacts& window) {
        return window.isViewable && window.processIdentifier == program_ && window.frame.width == pixels;
    });
}

WindowFacts Panel::waitUntilOpen(Deadline deadline)
{
    desktop_.connection().waitUntil(
        "the panel on the screen", [this] { return isOpen(); }, deadline);
    desktop_.connection().waitUntil(
        "the panel to have the keyboard focus",
        [this] {
            const auto panel = find();
            return panel && desktop_.windows().hasFocus(panel->window);
        },
        deadline);
    desktop_.connection().waitUntil(
        "the panel to be painted", [this] { return isPainted(); }, deadline);
    return find().value();
}

void Panel::waitUntilClosed(Deadline deadline)
{
    desktop_.connection().waitUntil(
        "the panel to be gone", [this] { return !isOpen(); }, deadline);
}

WindowFacts Panel::waitForHeight(int height, Deadline deadline)
{
    int seen = 0;
    try {
        desktop_.connection().waitUntil(
            "the panel to be " + std::to_string(height) + " pixels high",
            [&] {
                const auto panel = find();
                seen = panel ? panel->frame.height : 0;
                return seen == height;
            },
            deadline);
    } catch (const DesktopFailure& failure) {
        throw DesktopFailure(std::string(failure.what()) + " (it is " + std::to_string(seen) + ")");
    }
    return find().value();
}

WindowFacts Panel::waitForFrame(const Frame& frame, Deadline deadline)
{
    Frame seen;
    try {
        desktop_.connection().waitUntil(
            "the panel at " + frame.description(),
            [&] {
                const auto panel = find();
                seen = panel ? panel->frame : Frame{};
                return seen == frame;
            },
            deadline);
    } catch (const DesktopFailure& failure) {
        throw DesktopFailure(std::string(failure.what()) + " (it is at " + seen.description() + ")");
    }
    return find().value();
}

void Panel::waitUntilItDiffersFrom(const Picture& before, Deadline deadline)
{
    desktop_.connection().waitUntil(
        "the panel to show something else", [&] { return isOpen() && picture() != before; }, deadline);
}

void Panel::waitUntilItIs(const Picture& expected, Deadline deadline)
{
    desktop_.connection().waitUntil(
        "the panel to look as it did", [&] { return isOpen() && picture() == expected; }, deadline);
}

Picture Panel::picture() const
{
    const auto panel = find();
    if (!panel)
        throw DesktopFailure("the panel is not on the screen");
    return desktop_.pixels().read(panel->frame);
}

bool Panel::isPainted() const
{
    // The title is white on the dark card, and it is painted together with everything else.
    constexpr int headerHeight = 56;
    constexpr std::uint8_t nearlyWhite = 215;
    const auto panel = find();
    if (!panel)
        return false;
    const auto height = static_cast<int>(headerHeight * desktop_.scale());
    const auto header =
        desktop_.pixels().read({panel->frame.x, panel->frame.y, panel->frame.width / 2, height});
    return std::any_of(header.pixels.begin(), header.pixels.end(), [](const Colour& colour) {
        return std::min({colour[0], colour[1], colour[2]}) >= nearlyWhite;
    });
}

int Panel::heightFor(std::size_t entryCount)
{
    constexpr std::array heights{220, 220, 262, 334, 406, 478, 550};
    return heights[std::min(entryCount, heights.size() - 1)];
}

Frame Panel::frameBeside(Place pointer, std::size_t entryCount, const Frame& visible, double scale)
{
    constexpr int offset = 12;
    const auto pixels = [scale](int points) { return static_cast<int>(std::lround(points * scale)); };
    const int height = pixels(heightFor(entryCount));
    const int right = visible.x + visible.width - pixels(width);
    const int bottom = visible.y + visible.height - height;
    // A panel that is larger than what is visible keeps its right and its top edge inside.
    const int x = std::min(std::max(pointer.x + pixels(offset), visible.x), right);
    const int y = std::max(std::min(pointer.y + pixels(offset), bottom), visible.y);
    return {x, y, pixels(width), height};
}

Frame Panel::frameBeside(Place pointer, std::size_t entryCount, Extent screen)
{
    return frameBeside(pointer, entryCount, Frame{0, 0, screen.width, screen.height});
}

} // namespace tessel::desktop
