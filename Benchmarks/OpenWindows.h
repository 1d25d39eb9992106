#pragma once

namespace tessel::bench {

/// The share of one core, 0 to 1, that the program uses while the settings and the about window are open
/// beside each other and nobody touches them, on a desktop of that scale.
double shareOfOpenWindows(double scale);

} // namespace tessel::bench
