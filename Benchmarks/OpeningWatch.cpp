#include "OpeningWatch.h"

#include <algorithm>

#include "Damage.h"

namespace tessel::bench {

namespace {

using desktop::Colour;
using desktop::Deadline;
using desktop::Desktop;
using desktop::DesktopFailure;
using desktop::own;

/// The window's top left corner, from the pointer, in pixels.
constexpr int pointerOffset = 12;
constexpr int windowWidth = 460;
/// A place inside every height of the panel.
constexpr int middleHeight = 150;
/// Where the panel's title is, from the window's top left corner.
constexpr desktop::Frame titleFrame{12, 12, 100, 24};
/// Where the text of the first entry is: under the header and the section's caption.
constexpr desktop::Frame rowFrame{18, 92, 100, 30};

constexpr std::uint8_t nearlyWhite = 215;

bool isNearlyWhite(const Colour& colour)
{
    return std::min({colour[0], colour[1], colour[2]}) >= nearlyWhite;
}

} // namespace

OpeningWatch::OpeningWatch(Desktop& desktop, Painted painted)
    : desktop_(desktop)
    , painted_(painted)
    , connection_(desktop.displayName())
    , pixels_(connection_)
{
    announceDamage(connection_);
}

std::chrono::microseconds OpeningWatch::measureOpening()
{
    auto& keyboard = desktop_.keyboard();
    desktop_.pointer().moveTo(pointerPlace);
    awaitQuiet();
    keyboard.press(XKB_KEY_Super_L);
    keyboard.press(XKB_KEY_Shift_L);
    desktop_.connection().synchronize();

    // The key code is looked up before the clock starts.
    const auto keyCode = keyboard.keyCode(XKB_KEY_v);
    const auto pressed = std::chrono::steady_clock::now();
    keyboard.pressKey(keyCode);
    const Deadline deadline;
    while (!isPainted()) {
        if (!connection_.nextEvent(deadline))
            throw DesktopFailure("waited in vain for: a painted window beside the pointer");
    }
    const auto painted = std::chrono::steady_clock::now();
    for (const auto key : {XKB_KEY_v, XKB_KEY_Shift_L, XKB_KEY_Super_L})
        keyboard.release(static_cast<desktop::KeySymbol>(key));
    return std::chrono::duration_cast<std::chrono::microseconds>(painted - pressed);
}

void OpeningWatch::awaitQuiet()
{
    connection_.waitUntil("the empty desktop beside the pointer", [this] { return !isPainted(); });
    connection_.synchronize();
    while (own(xcb_poll_for_event(connection_.get()))) {
        // What was painted before the press does not count.
    }
}

bool OpeningWatch::isPainted() const
{
    const int left = pointerPlace.x + pointerOffset;
    const int top = pointerPlace.y + pointerOffset;
    if (pixels_.at(left + windowWidth / 2, top + middleHeight) == Desktop::backgroundColour)
        return false;
    if (painted_ == Painted::anything)
        return true;
    return hasWhite(titleFrame) && (painted_ == Painted::title || hasWhite(rowFrame));
}

bool OpeningWatch::hasWhite(const desktop::Frame& frame) const
{
    const auto picture = pixels_.read({pointerPlace.x + pointerOffset + frame.x,
                                       pointerPlace.y + pointerOffset + frame.y, frame.width, frame.height});
    return std::any_of(picture.pixels.begin(), picture.pixels.end(), isNearlyWhite);
}

OpeningFigures figures(std::vector<std::chrono::microseconds> openings)
{
    constexpr double microsecondsPerMillisecond = 1000;
    if (openings.empty())
        throw DesktopFailure("no opening was measured");
    std::sort(openings.begin(), openings.end());
    const auto at = [&](double fraction) {
        const auto index =
            static_cast<std::size_t>(fraction * static_cast<double>(openings.size() - 1) + 0.5);
        return static_cast<double>(openings[index].count()) / microsecondsPerMillisecond;
    };
    return {at(0.5), at(0.99)};
}

} // namespace tessel::bench
