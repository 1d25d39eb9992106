#pragma once

#include "KeyEvent.h"

class QKeyEvent;

namespace tessel {

/// The toolkit's key event in virtual key codes of the ANSI layout. Only the keys that the program knows by
/// name are translated; every other key is `VirtualKey::unknown`. Where the layout has Latin letters, a
/// letter is the key that the user reads it on; in another script it is the key in its position. Ctrl and
/// Super are both the Command flag.
KeyEvent virtualKeyEvent(const QKeyEvent& event);

} // namespace tessel
