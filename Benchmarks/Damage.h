#pragma once

#include "XConnection.h"

namespace tessel::bench {

/// From now on the DAMAGE extension tells this connection by an event whenever something is painted on the
/// screen. Throws `DesktopFailure` where the X server lacks the extension.
void announceDamage(desktop::XConnection& connection);

} // namespace tessel::bench
