#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "X11/HeldKeys.h"
#include "X11/X11Connection.h"

namespace tessel {

/// A keyboard that feeds the core keyboard (XInput 2, slave keyboard).
struct KeyboardDevice {
    std::uint8_t id = 0;
    DeviceKeys::Kind kind = DeviceKeys::Kind::physical;
};

/// Finds the keyboards and makes their state readable to this client. `handler` runs later; its argument is
/// empty where the server cannot tell.
void findKeyboards(X11Connection& connection, std::weak_ptr<const void> owner,
                   std::function<void(const std::vector<KeyboardDevice>&)> handler);

/// A request for the keys that are down on some keyboards.
struct DeviceKeysRequest {
    std::vector<KeyboardDevice> devices;
    std::vector<unsigned int> sequences;
};

/// Queues the requests; `receiveDeviceKeys` waits for their answers.
DeviceKeysRequest requestDeviceKeys(X11Connection& connection, const std::vector<KeyboardDevice>& devices);
std::vector<DeviceKeys> receiveDeviceKeys(X11Connection& connection, const DeviceKeysRequest& request);

/// The same without waiting. `handler` runs later.
void findDeviceKeys(X11Connection& connection, const std::vector<KeyboardDevice>& devices,
                    std::weak_ptr<const void> owner,
                    std::function<void(const std::vector<DeviceKeys>&)> handler);

/// The keys that the core keyboard has down.
KeySet keysOf(const xcb_query_keymap_reply_t* reply);

} // namespace tessel
