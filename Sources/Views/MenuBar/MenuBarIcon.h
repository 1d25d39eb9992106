#pragma once

#include "Appearance.h"
#include "StatusItem.h"

namespace tessel {

/// The symbol of the menu-bar extra, to be seen on a panel of that scheme. It is drawn at a whole multiple of
/// one of the sizes that it was designed for, as far as one fills the picture, so that its edges are sharp.
StatusIcon menuBarIcon(int pixels, ColorScheme panel);

} // namespace tessel
