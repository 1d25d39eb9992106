#pragma once

#include <QtGui/QIcon>

namespace tessel {

/// The application's icon, for windows that task bars and title bars show (EWMH `_NET_WM_ICON`). It is
/// rendered by this call, in the sizes that they use.
QIcon applicationIcon();

} // namespace tessel
