#include "Desktop/StatusNotifier/ThemedStatusIcon.h"

#include <QtCore/QStandardPaths>
#include <QtCore/QStringList>

#include <algorithm>

namespace tessel {

namespace {

const QString iconName = QStringLiteral("org.tesselclipboard.TesselClipboard-symbolic");

bool desktopPaintsSymbolicIcons()
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'));
    return std::any_of(desktops.begin(), desktops.end(), [](const QString& desktop) {
        return desktop == QStringLiteral("XFCE") || desktop == QStringLiteral("GNOME");
    });
}

bool iconIsInstalled()
{
    // Where every theme falls back to (Icon Theme Specification, "Directory Layout").
    const QString file = QStringLiteral("icons/hicolor/symbolic/apps/%1.svg").arg(iconName);
    return !QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty();
}

} // namespace

QString themedStatusIcon()
{
    return desktopPaintsSymbolicIcons() && iconIsInstalled() ? iconName : QString();
}

} // namespace tessel
