#pragma once

namespace tessel {

/// From now on the toolkit describes the settings, about, onboarding and update windows to assistive programs
/// as windows, links as links, and buttons of which one is chosen as radio buttons. To be called at least
/// once, before the first window is made.
void installWindowAccessibility();

} // namespace tessel
