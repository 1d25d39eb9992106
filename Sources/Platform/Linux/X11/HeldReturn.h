#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include <QtCore/QTimer>

#include "Token.h"
#include "X11/X11Connection.h"
#include "X11/X11Keyboard.h"

namespace tessel {

/// Keeps a Return that the user is still holding down from repeating into the window that is about to get the
/// focus: the keyboard stays grabbed until it is released, or is lifted after a while.
///
/// A client has one grab of the keyboard, so there is one object of this type for a connection. It goes on
/// holding whoever waits for it.
class HeldReturn {
public:
    HeldReturn(std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Keyboard> keyboard,
               std::chrono::milliseconds longestHold);
    ~HeldReturn();

    /// Has the keyboard grabbed before anything that is asked of the server from now on, and lets go of it
    /// again if neither Return nor Enter is down. Does not wait for the server.
    void holdAtOnce();
    /// Runs `didEnd` once no Return and no Enter is down any more; never before this call has returned.
    /// Replaces whoever has waited until now.
    void waitForRelease(std::function<void()> didEnd);
    /// True while the keyboard is kept from others, or is about to be.
    bool isHolding() const { return isGrabRequested_; }

private:
    void askForKeys();
    void keysAreDown(const KeySet& down);
    void grab();
    void lift();
    void follow(const xcb_generic_event_t& event);
    void end();

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<X11Keyboard> keyboard_;
    std::chrono::milliseconds longestHold_;
    std::function<void()> didEnd_;
    /// None: the server has not said yet.
    std::optional<KeySet> down_;
    bool isGrabRequested_ = false;
    bool isGrabRefused_ = false;
    QTimer patience_;
    Token events_;
    /// Replies that come after the end of a hold say nothing about the next one.
    std::shared_ptr<void> round_;
};

} // namespace tessel
