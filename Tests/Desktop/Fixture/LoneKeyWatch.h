#pragma once

#include <string>

#include "Keyboard.h"
#include "XConnection.h"

namespace tessel::desktop {

/// What a launcher does that opens when a modifier is pressed and released alone: it follows the raw key
/// events of all keyboards (XInput 2.1), which no grab keeps from it.
class LoneKeyWatch {
public:
    LoneKeyWatch(const std::string& displayName, xcb_keycode_t key);

    /// How many times the key was pressed and released with no press of another key in between, since this
    /// object was made.
    int count();
    /// How many times the key was pressed, whoever received it.
    int pressCount();

private:
    void read();
    void note(const xcb_generic_event_t& event);

    XConnection connection_;
    xcb_keycode_t key_;
    bool isAlone_ = false;
    int count_ = 0;
    int pressCount_ = 0;
};

} // namespace tessel::desktop
