#pragma once

#include <functional>
#include <memory>

#include "Token.h"
#include "X11/Keymap.h"
#include "X11/X11Connection.h"

namespace tessel {

/// The keymap of the core keyboard, followed through layout changes.
class X11Keyboard {
public:
    /// Reads the keymap: one round trip.
    explicit X11Keyboard(std::shared_ptr<X11Connection> connection);

    const Keymap& keymap() const { return keymap_; }
    /// Runs after the keymap has changed.
    Token observeChanges(std::function<void()> didChange);

private:
    struct Requests;

    void selectEvents();
    Requests request();
    void follow(const xcb_generic_event_t& event);
    /// Reads the keymap again without waiting for it. Changes come in bursts: one reading at a time, and one
    /// more after it.
    void refresh();
    void adopt(Keymap keymap);

    std::shared_ptr<X11Connection> connection_;
    Keymap keymap_;
    bool refreshing_ = false;
    bool changedMeanwhile_ = false;
    ObserverList<> observers_;
    Token events_;
    /// Replies that come after the keyboard has gone are not for it.
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
