#pragma once

#include "X11/Keymap.h"
#include "X11/X11Connection.h"

namespace tessel {

/// Queues the press of a key through XTEST. The server handles it when the request's turn comes.
void pressKey(X11Connection& connection, Keycode key);
/// Queues the release of a key through XTEST, which brings it up on the core keyboard whoever holds it.
void releaseKey(X11Connection& connection, Keycode key);
/// Queues the release of each of the keys.
void releaseKeys(X11Connection& connection, const KeySet& keys);
/// Queues the press of each of the keys.
void pressKeys(X11Connection& connection, const KeySet& keys);

} // namespace tessel
