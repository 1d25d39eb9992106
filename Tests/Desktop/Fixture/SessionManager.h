#pragma once

#include <string>

#include "ChildProcess.h"

namespace tessel::desktop {

/// A session manager (X Session Management Protocol) that starts nothing.
class SessionManager {
public:
    explicit SessionManager(const Environment& environment);

    /// The value for `SESSION_MANAGER`.
    const std::string& address() const { return address_; }
    /// Waits until a client has joined the session.
    void waitForClient();
    /// Asks its one client to save itself, as at the end of a session, and waits for that. Returns the style
    /// in which it wants to be started again, as the protocol numbers them.
    std::string save();
    /// Tells its clients to end.
    void endSession();
    /// Waits until a client has left.
    void waitUntilClientIsGone();

private:
    ChildProcess process_;
    std::string address_;
};

} // namespace tessel::desktop
