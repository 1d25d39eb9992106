#pragma once

namespace tessel::desktop {

/// How many times longer this machine takes for a piece of work than the machine on which times are promised:
/// 1 there and on every faster one. Only the time on a processor counts, not the wait for one. Takes some
/// milliseconds.
double slowness();

} // namespace tessel::desktop
