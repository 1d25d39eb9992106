#pragma once

#include <xcb/xcb.h>

#include "X11/Keymap.h"
#include "X11/XkbProtocol.h"

namespace tessel {

/// The keymap that the server's three answers describe. A null reply leaves its part of the keymap empty.
Keymap keymapFromReplies(const xcb_xkb_get_map_reply_t* map, const xcb_xkb_get_names_reply_t* names,
                         const xcb_get_modifier_mapping_reply_t* modifiers);

} // namespace tessel
