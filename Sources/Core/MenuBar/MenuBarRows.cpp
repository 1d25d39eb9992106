#include "MenuBar/MenuBarRows.h"

#include <algorithm>

#include "AppState.h"

namespace tessel {

std::array<MenuBarRow, menuBarRowCount> menuBarRows(HotKeyPreset preset)
{
    using Kind = StatusMenuRow::Kind;
    return {{
        {Kind::header, "Tessel Clipboard", title(preset), nullptr},
        {Kind::separator, "", "", nullptr},
        {Kind::action, "Open History", "", &AppState::showPanel},
        {Kind::action, "Clear history", "", &AppState::clearHistory},
        {Kind::action, "Settings", "", &AppState::showSettingsWindow},
        {Kind::action, "Check for Updates...", "", &AppState::checkForUpdates},
        {Kind::action, "About", "", &AppState::showAboutWindow},
        {Kind::separator, "", "", nullptr},
        {Kind::action, "Quit", "", &AppState::terminate},
    }};
}

Point menuOrigin(Point click, Size menu, const Rect& visibleFrame)
{
    const bool fitsBelow = click.y - menu.height >= visibleFrame.minY();
    const double x = std::min(click.x, visibleFrame.maxX() - menu.width);
    const double y = fitsBelow ? click.y - menu.height : std::max(click.y, visibleFrame.minY());
    return {std::max(x, visibleFrame.minX()), std::min(y, visibleFrame.maxY() - menu.height)};
}

} // namespace tessel
