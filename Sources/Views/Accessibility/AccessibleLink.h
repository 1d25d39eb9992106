#pragma once

namespace tessel {

/// Describes `LinkButton`s to assistive programs as links, which are pressed. Calling it again does nothing.
void installLinkAccessibility();

} // namespace tessel
