#pragma once

#include <string>

#include "ChildProcess.h"
#include "TemporaryDirectory.h"

namespace tessel::desktop {

/// A session bus of its own (dbus-daemon) that starts no services by itself.
class SessionBus {
public:
    SessionBus(const TemporaryDirectory& directory, const Environment& environment);

    /// The value for `DBUS_SESSION_BUS_ADDRESS`.
    const std::string& address() const { return address_; }

    pid_t pid() const { return daemon_.pid(); }

private:
    ChildProcess daemon_;
    std::string address_;
};

} // namespace tessel::desktop
