// A settings portal without a window. `color-scheme 1`, `reduced-motion 1` and `accent-color 1 0 0.5` set
// what it holds; once `start` has given it the portal's name, everybody is told of each change.

#include <QtCore/QCoreApplication>

#include <sstream>

#include "PortalStandIn.h"
#include "QtCommandLines.h"

namespace {

using tessel::PortalStandIn;

QVariant valueOf(std::string_view key, std::string_view value)
{
    std::istringstream stream{std::string(value)};
    if (key == "accent-color") {
        double red = 0;
        double green = 0;
        double blue = 0;
        stream >> red >> green >> blue;
        return PortalStandIn::color(red, green, blue);
    }
    unsigned number = 0;
    stream >> number;
    return number;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    PortalStandIn portal(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
    bool hasStarted = false;
    const tessel::desktop::QtCommandLines commandLines([&](std::string_view word, std::string_view value) {
        if (word == "start") {
            portal.start();
            hasStarted = true;
            return std::string();
        }
        const auto set = hasStarted ? &PortalStandIn::change : &PortalStandIn::hold;
        const auto key = QString::fromUtf8(word.data(), static_cast<qsizetype>(word.size()));
        (portal.*set)(QStringLiteral("org.freedesktop.appearance"), key, valueOf(word, value));
        return std::string();
    });
    return QCoreApplication::exec();
}
