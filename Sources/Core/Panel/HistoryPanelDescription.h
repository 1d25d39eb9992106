#pragma once

#include "PanelDescription.h"

namespace tessel {

/// The one description of the history panel.
PanelDescription panelDescription();

} // namespace tessel
