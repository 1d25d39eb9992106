#include "X11/HeldKeys.h"

namespace tessel {

namespace {

KeySet downOn(const std::vector<DeviceKeys>& devices, DeviceKeys::Kind kind)
{
    KeySet down;
    for (const DeviceKeys& device : devices)
        if (device.kind == kind)
            down |= device.down;
    return down;
}

} // namespace

HeldKeysPlan planHeldKeys(const KeySet& coreDown, const std::vector<DeviceKeys>& devices,
                          const KeySet& modifiers, const KeySet& chordKeys)
{
    // A key that XTEST alone has down would swallow the chord's own press of it.
    const KeySet down = coreDown | downOn(devices, DeviceKeys::Kind::synthetic);
    HeldKeysPlan plan;
    plan.lift = down & (modifiers | chordKeys);
    plan.putBack = coreDown & modifiers & downOn(devices, DeviceKeys::Kind::physical);
    return plan;
}

KeySet keysToLiftAgain(const KeySet& putBack, const std::vector<DeviceKeys>& devices)
{
    return putBack & ~downOn(devices, DeviceKeys::Kind::physical);
}

} // namespace tessel
