#include "X11/X11Screens.h"

#include <utility>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace tessel {

namespace {

ScreenLayout layoutOf(const QScreen& screen)
{
    const QRect geometry = screen.geometry();
    return {double(geometry.x()),
            double(geometry.y()),
            {double(geometry.width()), double(geometry.height())},
            screen.devicePixelRatio()};
}

} // namespace

std::vector<ScreenLayout> toolkitScreens()
{
    std::vector<ScreenLayout> layouts;
    for (const QScreen* screen : QGuiApplication::screens())
        layouts.push_back(layoutOf(*screen));
    return layouts;
}

std::optional<ScreenLayout> toolkitMainScreen()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return std::nullopt;
    return layoutOf(*screen);
}

X11Screens::X11Screens(std::shared_ptr<X11Connection> connection)
    : connection_(connection)
    , struts_(std::move(connection))
{}

std::vector<Screen> X11Screens::screens() const
{
    const auto layouts = toolkitScreens();
    const auto main = toolkitMainScreen();
    if (!main)
        return {};
    std::vector<PixelRect> frames;
    for (const ScreenLayout& layout : layouts)
        frames.push_back(pixelsOf(layout));
    const auto visible =
        visibleRects(frames, connection_->rootWidth(), connection_->rootHeight(), struts_.struts());
    std::vector<Screen> screens;
    for (std::size_t index = 0; index < layouts.size(); ++index) {
        const ScreenLayout& layout = layouts[index];
        const PixelRect frame{layout.x, layout.y, layout.size.width, layout.size.height};
        // A screen without docks is visible as a whole; the way through pixels would round it.
        const PixelRect inner =
            visible[index] == frames[index] ? frame : toToolkitPoints(visible[index], layout);
        screens.push_back({toGlobalPoints(frame, *main), toGlobalPoints(inner, *main)});
    }
    return screens;
}

std::optional<Screen> X11Screens::mainScreen() const
{
    const QScreen* primary = QGuiApplication::primaryScreen();
    const auto index = QGuiApplication::screens().indexOf(primary);
    const auto all = screens();
    if (primary == nullptr || index < 0 || static_cast<std::size_t>(index) >= all.size())
        return std::nullopt;
    return all[static_cast<std::size_t>(index)];
}

Point X11Screens::mouseLocation() const
{
    const auto main = toolkitMainScreen();
    if (!main || !connection_->isAlive())
        return {};
    const auto pointer = connection_->wait(xcb_query_pointer_reply,
                                           xcb_query_pointer(connection_->raw(), connection_->root()));
    if (!pointer)
        return {};
    return pixelToGlobalPoint(pointer->root_x, pointer->root_y, toolkitScreens(), *main);
}

} // namespace tessel
