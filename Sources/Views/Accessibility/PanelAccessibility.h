#pragma once

namespace tessel {

/// From now on the toolkit describes the panel's widgets to assistive programs as this room does. To be
/// called at least once, before the first panel is made.
void installPanelAccessibility();

} // namespace tessel
