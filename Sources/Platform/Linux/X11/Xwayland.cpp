#include "X11/Xwayland.h"

#include <algorithm>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace tessel {

bool isXwayland(const X11Connection& connection)
{
    if (connection.extensions().wayland)
        return true;
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [](const QScreen* screen) {
        return screen->name().startsWith(QLatin1String("XWAYLAND"));
    });
}

} // namespace tessel
