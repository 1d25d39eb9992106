#include "X11/KeyboardDevices.h"

#include <string_view>
#include <utility>

#include <xcb/xinput.h>

namespace tessel {

namespace {

constexpr std::size_t keyBytes = 32;
constexpr std::size_t bitsPerByte = 8;

KeySet keysFromBits(const std::uint8_t* bits)
{
    KeySet keys;
    for (std::size_t key = 0; key < keyBytes * bitsPerByte; ++key)
        keys[key] = (bits[key / bitsPerByte] >> (key % bitsPerByte) & 1) != 0;
    return keys;
}

/// The server gives each core keyboard one slave for XTEST and calls it so.
DeviceKeys::Kind kindOf(const xcb_input_xi_device_info_t& device)
{
    const std::string_view name(xcb_input_xi_device_info_name(&device), device.name_len);
    const bool isSynthetic = name.find("XTEST") != std::string_view::npos;
    return isSynthetic ? DeviceKeys::Kind::synthetic : DeviceKeys::Kind::physical;
}

std::vector<KeyboardDevice> keyboardsIn(const xcb_input_xi_query_device_reply_t* reply)
{
    std::vector<KeyboardDevice> keyboards;
    if (reply == nullptr)
        return keyboards;
    auto devices = xcb_input_xi_query_device_infos_iterator(reply);
    for (; devices.rem > 0; xcb_input_xi_device_info_next(&devices)) {
        const auto& device = *devices.data;
        if (device.type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD && device.enabled != 0)
            keyboards.push_back({static_cast<std::uint8_t>(device.deviceid), kindOf(device)});
    }
    return keyboards;
}

KeySet keysOfState(const xcb_input_query_device_state_reply_t* reply)
{
    if (reply == nullptr)
        return {};
    // One entry for each input class of the device; each begins with its class and its length in bytes.
    const auto* entry = reinterpret_cast<const std::uint8_t*>(reply) + sizeof *reply;
    const auto* end = entry + reply->length * 4;
    for (int index = 0; index < reply->num_classes && entry + sizeof(xcb_input_key_state_t) <= end; ++index) {
        const auto* state = reinterpret_cast<const xcb_input_key_state_t*>(entry);
        if (state->class_id == XCB_INPUT_INPUT_CLASS_KEY)
            return keysFromBits(state->keys);
        if (state->len == 0)
            break;
        entry += state->len;
    }
    return {};
}

} // namespace

void findKeyboards(X11Connection& connection, std::weak_ptr<const void> owner,
                   std::function<void(const std::vector<KeyboardDevice>&)> handler)
{
    if (!connection.isAlive() || !connection.extensions().input)
        return handler({});
    constexpr std::uint16_t everyDevice = 0;
    connection.whenReplied<xcb_input_xi_query_device_reply_t>(
        xcb_input_xi_query_device(connection.raw(), everyDevice), std::move(owner),
        [&connection, handler = std::move(handler)](const auto* reply) {
            const auto keyboards = keyboardsIn(reply);
            for (const KeyboardDevice& keyboard : keyboards)
                xcb_discard_reply(connection.raw(),
                                  xcb_input_open_device(connection.raw(), keyboard.id).sequence);
            handler(keyboards);
        });
    connection.flush();
}

DeviceKeysRequest requestDeviceKeys(X11Connection& connection, const std::vector<KeyboardDevice>& devices)
{
    DeviceKeysRequest request{devices, {}};
    for (const KeyboardDevice& device : devices)
        request.sequences.push_back(xcb_input_query_device_state(connection.raw(), device.id).sequence);
    return request;
}

std::vector<DeviceKeys> receiveDeviceKeys(X11Connection& connection, const DeviceKeysRequest& request)
{
    std::vector<DeviceKeys> result;
    for (std::size_t index = 0; index < request.devices.size(); ++index) {
        const xcb_input_query_device_state_cookie_t cookie{request.sequences[index]};
        const auto reply = connection.wait(xcb_input_query_device_state_reply, cookie);
        result.push_back({request.devices[index].kind, keysOfState(reply.get())});
    }
    return result;
}

void findDeviceKeys(X11Connection& connection, const std::vector<KeyboardDevice>& devices,
                    std::weak_ptr<const void> owner,
                    std::function<void(const std::vector<DeviceKeys>&)> handler)
{
    if (!connection.isAlive() || devices.empty())
        return handler({});
    const auto request = requestDeviceKeys(connection, devices);
    const auto result = std::make_shared<std::vector<DeviceKeys>>();
    for (std::size_t index = 0; index < devices.size(); ++index) {
        const bool isLast = index + 1 == devices.size();
        connection.whenReplied<xcb_input_query_device_state_reply_t>(
            xcb_input_query_device_state_cookie_t{request.sequences[index]}, owner,
            [result, kind = devices[index].kind, isLast, handler](const auto* reply) {
                result->push_back({kind, keysOfState(reply)});
                if (isLast)
                    handler(*result);
            });
    }
    connection.flush();
}

KeySet keysOf(const xcb_query_keymap_reply_t* reply)
{
    return reply == nullptr ? KeySet{} : keysFromBits(reply->keys);
}

} // namespace tessel
