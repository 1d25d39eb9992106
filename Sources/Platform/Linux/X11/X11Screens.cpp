#include "X11/X11Screens.h"

#include <utility>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include "ScreenSpace.h"

namespace tessel {

namespace {

ScreenLayout layoutOf(const QScreen& screen)
{
    const QRect geometry = screen.geometry();
    return {geometry.topLeft(), geometry.size(), screen.devicePixelRatio()};
}

std::vector<ScreenLayout> toolkitScreens()
{
    std::vector<ScreenLayout> layouts;
    for (const QScreen* screen : QGuiApplication::screens())
        layouts.push_back(layoutOf(*screen));
    return layouts;
}

} // namespace

X11Screens::X11Screens(std::shared_ptr<X11Connection> connection,
                       std::shared_ptr<WindowManager> windowManager)
    : connection_(connection)
    , struts_(std::move(connection), std::move(windowManager))
{}

std::vector<Screen> X11Screens::screens() const
{
    const auto origin = screenSpace::originOfSeam();
    if (!origin)
        return {};
    const auto layouts = toolkitScreens();
    std::vector<PixelRect> frames;
    for (const ScreenLayout& layout : layouts)
        frames.push_back(pixelsOf(layout));
    const auto visible =
        visibleRects(frames, connection_->rootWidth(), connection_->rootHeight(), struts_.struts());
    std::vector<Screen> screens;
    for (std::size_t index = 0; index < layouts.size(); ++index) {
        const ScreenLayout& layout = layouts[index];
        // A screen without docks is visible as a whole; the way through pixels would round it.
        const QRectF inner =
            visible[index] == frames[index] ? layout.frame() : toToolkitPoints(visible[index], layout);
        screens.push_back(
            {screenSpace::toSeam(layout.frame(), *origin), screenSpace::toSeam(inner, *origin)});
    }
    return screens;
}

std::optional<Screen> X11Screens::mainScreen() const
{
    const auto index = QGuiApplication::screens().indexOf(QGuiApplication::primaryScreen());
    const auto all = screens();
    if (index < 0 || static_cast<std::size_t>(index) >= all.size())
        return std::nullopt;
    return all[static_cast<std::size_t>(index)];
}

Point X11Screens::mouseLocation() const
{
    if (!connection_->isAlive())
        return {};
    const auto pointer = connection_->wait(xcb_query_pointer_reply,
                                           xcb_query_pointer(connection_->raw(), connection_->root()));
    if (!pointer)
        return {};
    return pointOfPixel(pointer->root_x, pointer->root_y);
}

Point X11Screens::pointOfPixel(double x, double y)
{
    const auto origin = screenSpace::originOfSeam();
    if (!origin)
        return {};
    const QPointF point = toToolkitPoint(x, y, toolkitScreens(), layoutOf(*QGuiApplication::primaryScreen()));
    return screenSpace::toSeam(point, *origin);
}

} // namespace tessel
