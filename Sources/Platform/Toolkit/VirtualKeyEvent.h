#pragma once

#include "KeyEvent.h"

class QKeyEvent;

namespace tessel {

/// The toolkit's key event in virtual key codes of the ANSI layout. Only the keys that the program knows by
/// name are translated; every other key is `VirtualKey::unknown`. The key code follows the symbol that the
/// layout gives the key, as the user reads it on the key cap. Ctrl and Super are both the Command flag.
KeyEvent virtualKeyEvent(const QKeyEvent& event);

} // namespace tessel
