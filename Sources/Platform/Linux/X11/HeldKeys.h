#pragma once

#include <vector>

#include "X11/Keymap.h"

namespace tessel {

/// A keyboard behind the core keyboard, and the keys that it reports as down.
struct DeviceKeys {
    /// Whether a user's fingers move its keys, or XTEST does.
    enum class Kind { physical, synthetic };

    Kind kind = Kind::physical;
    KeySet down;
};

/// What is done about held keys around a chord.
struct HeldKeysPlan {
    KeySet lift;    ///< Released before the chord, so that it is received as it is meant.
    KeySet putBack; ///< Pressed again after it, because the user still holds them.

    friend bool operator==(const HeldKeysPlan&, const HeldKeysPlan&) = default;
};

/// Decides that from what is down. `coreDown` are the keys that the core keyboard, which all devices feed,
/// has down; `modifiers` the keys that act as modifiers while they are held; `chordKeys` the keys of the
/// chord itself. A key of the chord that is down has to come up first, or pressing it would be no event. Only
/// modifiers are put back: any other key would type.
HeldKeysPlan planHeldKeys(const KeySet& coreDown, const std::vector<DeviceKeys>& devices,
                          const KeySet& modifiers, const KeySet& chordKeys);

/// Of the keys that were put back, those that no physical keyboard has down any more: they have to be lifted
/// again, for nobody else will.
KeySet keysToLiftAgain(const KeySet& putBack, const std::vector<DeviceKeys>& devices);

} // namespace tessel
