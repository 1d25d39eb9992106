#pragma once

#include <memory>

#include "RemoteControl.h"

namespace tessel {

/// One running program per session, by its well-known name on the session bus, reached through
/// `org.freedesktop.Application` (freedesktop.org Desktop Entry, "D-Bus Activation").
class SessionBusControl final : public RemoteControl {
public:
    SessionBusControl();
    ~SessionBusControl() override;

    Delivery send(const RemoteRequest& request) override;
    Claim claim(Handler handler) override;

private:
    class Object;
    std::unique_ptr<Object> object_;
};

} // namespace tessel
