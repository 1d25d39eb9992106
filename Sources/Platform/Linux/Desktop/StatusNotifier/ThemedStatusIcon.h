#pragma once

#include <QtCore/QString>

namespace tessel {

/// The name of the item's symbolic icon, which a menu bar paints in the colour of its own texts. Empty: it is
/// not installed, or the menu bars of this desktop (`XDG_CURRENT_DESKTOP`) would paint it in black, whatever
/// is behind it.
QString themedStatusIcon();

} // namespace tessel
