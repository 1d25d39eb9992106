#include "ProgramWindow.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <set>
#include <utility>
#include <vector>

namespace tessel::desktop {

ProgramWindow::ProgramWindow(Desktop& desktop, pid_t program, std::string title)
    : desktop_(desktop)
    , program_(program)
    , title_(std::move(title))
{}

bool ProgramWindow::isIt(const WindowFacts& window) const
{
    return window.isViewable && window.processIdentifier == program_ && window.title == title_;
}

std::optional<WindowFacts> ProgramWindow::find() const
{
    return desktop_.windows().find([this](const WindowFacts& window) { return isIt(window); });
}

std::size_t ProgramWindow::count() const
{
    const auto windows = desktop_.windows().all();
    return static_cast<std::size_t>(
        std::count_if(windows.begin(), windows.end(), [this](const auto& window) { return isIt(window); }));
}

WindowFacts ProgramWindow::waitUntilOpen(Deadline deadline)
{
    std::optional<WindowFacts> window;
    desktop_.connection().waitUntil(
        "the window \"" + title_ + "\" with the keyboard focus",
        [&] {
            window = find();
            return window && desktop_.windows().hasFocus(window->window);
        },
        deadline);
    return *window;
}

WindowFacts ProgramWindow::waitForFrame(const Frame& frame, Deadline deadline)
{
    std::optional<WindowFacts> window;
    try {
        desktop_.connection().waitUntil(
            "the window \"" + title_ + "\" at " + frame.description(),
            [&] {
                window = find();
                return window && window->frame == frame;
            },
            deadline);
    } catch (const DesktopFailure& failure) {
        throw DesktopFailure(std::string(failure.what()) + " (it is at " +
                             window.value_or(WindowFacts{}).frame.description() + ")");
    }
    return *window;
}

WindowFacts ProgramWindow::moveTo(Place place)
{
    const auto window = find().value();
    desktop_.windows().move(window.window, place.x, place.y);
    return waitForFrame({place.x, place.y, window.frame.width, window.frame.height});
}

void ProgramWindow::waitForIcon(Deadline deadline)
{
    // Window managers give one of one size to windows that have none.
    const auto sidesOf = [](const std::string& icon) {
        std::vector<std::uint32_t> units(icon.size() / sizeof(std::uint32_t));
        std::memcpy(units.data(), icon.data(), units.size() * sizeof(std::uint32_t));
        std::set<std::uint32_t> sides;
        for (std::size_t place = 0; place + 1 < units.size();
             place += 2 + std::size_t{units[place]} * units[place + 1])
            sides.insert(units[place]);
        return sides;
    };
    desktop_.connection().waitUntil(
        "the icon of the window \"" + title_ + "\"",
        [&] {
            const auto window = find();
            const auto icon =
                window ? desktop_.connection().propertyBytes(window->window, "_NET_WM_ICON") : std::nullopt;
            return icon && sidesOf(*icon) == std::set<std::uint32_t>{16, 32, 48, 64};
        },
        deadline);
}

void ProgramWindow::waitUntilClosed(Deadline deadline)
{
    desktop_.connection().waitUntil(
        "the window \"" + title_ + "\" to be gone", [this] { return !isOpen(); }, deadline);
}

void ProgramWindow::askToClose()
{
    auto& connection = desktop_.connection();
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = find().value().window;
    message.type = connection.atom("WM_PROTOCOLS");
    message.data.data32[0] = connection.atom("WM_DELETE_WINDOW");
    xcb_send_event(connection.get(), 0, message.window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
    connection.flush();
}

Picture ProgramWindow::picture() const
{
    const auto window = find();
    if (!window)
        throw DesktopFailure("the window \"" + title_ + "\" is not on the screen");
    return desktop_.pixels().read(window->frame);
}

void ProgramWindow::waitUntilItDiffersFrom(const Picture& before, Deadline deadline)
{
    desktop_.connection().waitUntil(
        "the window \"" + title_ + "\" to show something else", [&] { return picture() != before; },
        deadline);
}

Frame ProgramWindow::centered(Extent size, const Frame& visible, double scale)
{
    const auto pixels = [scale](int points) { return static_cast<int>(std::lround(points * scale)); };
    const int width = pixels(size.width);
    const int height = pixels(size.height);
    return {visible.x + (visible.width - width) / 2, visible.y + (visible.height - height) / 2, width,
            height};
}

} // namespace tessel::desktop
