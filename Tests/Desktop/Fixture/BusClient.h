#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "Deadline.h"

struct DBusConnection;

namespace tessel::desktop {

/// A client of a session bus, on a connection of its own. For one thread.
class BusClient {
public:
    explicit BusClient(const std::string& address);
    ~BusClient();
    BusClient(const BusClient&) = delete;
    BusClient& operator=(const BusClient&) = delete;

    bool nameHasOwner(const std::string& name);
    /// Takes a name, and never answers what is asked there. Throws `DesktopFailure` where another has it.
    void ownName(const std::string& name);
    /// The process that owns a name; none if nobody does.
    std::optional<pid_t> processOf(const std::string& name);
    /// Asks an object for its properties, and returns whether any answer came until the deadline. Programs
    /// answer this on the thread that the object lives on, which is the main thread of a Qt program.
    bool askObject(const std::string& name, const std::string& path, Deadline deadline);
    /// Has the bus read anew which services it can start.
    void reloadServices();
    /// Sets a property of an object, and returns when that is done. Throws `DesktopFailure` where it is
    /// refused.
    void setProperty(const std::string& name, const std::string& path, const std::string& interfaceName,
                     const std::string& property, bool value);

private:
    DBusConnection* connection_;
};

} // namespace tessel::desktop
