#pragma once

#include "RemoteControl.h"

namespace tessel {

/// The program where the system sees to it that it runs once, and lets nobody else send it commands.
class SoleInstance final : public RemoteControl {
public:
    /// There is no channel.
    Delivery send(const RemoteRequest&) override { return Delivery::noChannel; }
    /// Always granted. `handler` never runs.
    Claim claim(Handler) override { return Claim::granted; }
};

} // namespace tessel
