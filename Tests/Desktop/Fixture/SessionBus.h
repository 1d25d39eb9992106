#pragma once

#include <string>

#include "ChildProcess.h"
#include "TemporaryDirectory.h"

namespace tessel::desktop {

/// A session bus of its own (dbus-daemon). It starts no services but those that are installed for the user of
/// the desktop: below `home/.local` of the directory.
class SessionBus {
public:
    SessionBus(const TemporaryDirectory& directory, const Environment& environment);

    /// The value for `DBUS_SESSION_BUS_ADDRESS`.
    const std::string& address() const { return address_; }

    pid_t pid() const { return daemon_.pid(); }
    /// Ends it as a crash does, and returns when it is gone.
    void kill() { daemon_.kill(); }

private:
    ChildProcess daemon_;
    std::string address_;
};

} // namespace tessel::desktop
