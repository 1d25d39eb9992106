#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include <QtCore/QTimer>

#include "Token.h"
#include "X11/X11Connection.h"
#include "X11/X11Keyboard.h"

namespace tessel {

/// Keeps a Return that the user is still holding down from repeating into the window that is about to get the
/// focus: the keyboard stays grabbed until it is released, or is lifted after a while.
class HeldReturn {
public:
    HeldReturn(std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Keyboard> keyboard,
               std::chrono::milliseconds longestHold);
    ~HeldReturn();

    /// Runs `didEnd` once no Return and no Enter is down any more; never before this call has returned.
    void waitForRelease(std::function<void()> didEnd);
    /// Has the keyboard grabbed, if a Return or an Enter is down, before anything that is asked of the server
    /// from now on. Takes a round trip.
    void holdAtOnce();

private:
    void keysAreDown(const KeySet& down);
    void grab();
    void grabbed(bool isGranted);
    void lift();
    void follow(const xcb_generic_event_t& event);
    void end();

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<X11Keyboard> keyboard_;
    std::chrono::milliseconds longestHold_;
    std::function<void()> didEnd_;
    KeySet down_;
    bool isGrabbed_ = false;
    QTimer patience_;
    Token events_;
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
