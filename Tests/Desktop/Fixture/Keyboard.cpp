#include "Keyboard.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <thread>

namespace tessel::desktop {

namespace {

std::vector<xcb_keycode_t> codesIn(const std::uint8_t* eightKeysEach)
{
    std::vector<xcb_keycode_t> codes;
    for (unsigned code = 0; code < 256; ++code) {
        const unsigned eightKeys = eightKeysEach[code / 8];
        if ((eightKeys >> (code % 8) & 1U) != 0)
            codes.push_back(static_cast<xcb_keycode_t>(code));
    }
    return codes;
}

} // namespace

Keyboard::Keyboard(XConnection& connection)
    : connection_(connection)
{
    findDevices();
}

void Keyboard::findDevices()
{
    auto* connection = connection_.get();
    const auto* input = xcb_get_extension_data(connection, &xcb_input_id);
    if (input == nullptr || input->present == 0)
        return;
    firstInputEvent_ = input->first_event;
    own(xcb_input_xi_query_version_reply(connection, xcb_input_xi_query_version(connection, 2, 2), nullptr));
    const auto reply = own(xcb_input_xi_query_device_reply(
        connection, xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL), nullptr));
    if (!reply)
        return;
    auto devices = xcb_input_xi_query_device_infos_iterator(reply.get());
    for (; devices.rem > 0; xcb_input_xi_device_info_next(&devices)) {
        if (devices.data->type != XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD)
            continue;
        const auto device = static_cast<std::uint8_t>(devices.data->deviceid);
        const std::string name(xcb_input_xi_device_info_name(devices.data), devices.data->name_len);
        devices_.push_back(device);
        if (!ownDevice_ && name.find("XTEST") == std::string::npos)
            ownDevice_ = device;
        // Its state can be asked for, and its keys moved, once it has been opened (XInput 1.5).
        own(xcb_input_open_device_reply(connection, xcb_input_open_device(connection, device), nullptr));
    }
}

void Keyboard::press(KeySymbol symbol)
{
    fake(XCB_KEY_PRESS, keyCode(symbol));
}

void Keyboard::release(KeySymbol symbol)
{
    fake(XCB_KEY_RELEASE, keyCode(symbol));
}

void Keyboard::tap(KeySymbol symbol, std::chrono::milliseconds hold)
{
    press(symbol);
    // The time is the input itself, as a finger gives it.
    if (hold.count() > 0)
        std::this_thread::sleep_for(hold);
    release(symbol);
}

void Keyboard::chord(std::initializer_list<KeySymbol> modifiers, KeySymbol symbol,
                     std::chrono::milliseconds hold)
{
    for (const auto modifier : modifiers)
        press(modifier);
    tap(symbol, hold);
    for (auto modifier = std::rbegin(modifiers); modifier != std::rend(modifiers); ++modifier)
        release(*modifier);
}

void Keyboard::sendTap(KeySymbol symbol, xcb_window_t window)
{
    for (const int eventType : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
        xcb_key_press_event_t event{};
        event.response_type = static_cast<std::uint8_t>(eventType);
        event.detail = keyCode(symbol);
        event.root = connection_.root();
        event.event = window;
        event.same_screen = 1;
        const auto mask = eventType == XCB_KEY_PRESS ? XCB_EVENT_MASK_KEY_PRESS : XCB_EVENT_MASK_KEY_RELEASE;
        xcb_send_event(connection_.get(), 0, window, mask, reinterpret_cast<const char*>(&event));
    }
    connection_.flush();
}

void Keyboard::type(std::string_view text)
{
    for (const char character : text) {
        // Latin-1 characters are their own key symbols; a line feed is the Return key, a tab the Tab key.
        const auto symbol = character == '\n' ? KeySymbol{XKB_KEY_Return}
                            : character == '\t'
                                ? KeySymbol{XKB_KEY_Tab}
                                : static_cast<KeySymbol>(static_cast<unsigned char>(character));
        if (place(symbol).shifted)
            chord({XKB_KEY_Shift_L}, symbol);
        else
            tap(symbol);
    }
}

std::vector<xcb_keycode_t> Keyboard::keysDown() const
{
    const auto reply =
        own(xcb_query_keymap_reply(connection_.get(), xcb_query_keymap(connection_.get()), nullptr));
    return reply ? codesIn(reply->keys) : std::vector<xcb_keycode_t>();
}

std::vector<xcb_keycode_t> Keyboard::keysDownOn(std::uint8_t device) const
{
    const auto cookie = xcb_input_query_device_state(connection_.get(), device);
    const auto reply = own(xcb_input_query_device_state_reply(connection_.get(), cookie, nullptr));
    if (!reply)
        return {};
    auto classes = xcb_input_query_device_state_classes_iterator(reply.get());
    for (; classes.rem > 0; xcb_input_input_state_next(&classes)) {
        if (classes.data->class_id == XCB_INPUT_INPUT_CLASS_KEY)
            return codesIn(reinterpret_cast<const xcb_input_key_state_t*>(classes.data)->keys);
    }
    return {};
}

bool Keyboard::isAnyKeyDown() const
{
    return !keysDown().empty() || std::any_of(devices_.begin(), devices_.end(), [this](std::uint8_t device) {
        return !keysDownOn(device).empty();
    });
}

std::uint16_t Keyboard::modifiers() const
{
    constexpr std::uint16_t withoutButtons = 0xff;
    const auto cookie = xcb_query_pointer(connection_.get(), connection_.root());
    const auto reply = own(xcb_query_pointer_reply(connection_.get(), cookie, nullptr));
    return reply ? reply->mask & withoutButtons : 0;
}

bool Keyboard::isFree() const
{
    auto* connection = connection_.get();
    const auto cookie = xcb_grab_keyboard(connection, 0, connection_.root(), XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    const auto reply = own(xcb_grab_keyboard_reply(connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

Keyboard::Place Keyboard::place(KeySymbol symbol) const
{
    const auto* setup = xcb_get_setup(connection_.get());
    const auto first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const auto cookie = xcb_get_keyboard_mapping(connection_.get(), first, count);
    const auto mapping = own(xcb_get_keyboard_mapping_reply(connection_.get(), cookie, nullptr));
    if (!mapping)
        throw DesktopFailure("the X server has gone");
    const auto* symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
    const unsigned perKey = mapping->keysyms_per_keycode;
    for (unsigned level = 0; level < 2; ++level) {
        for (unsigned key = 0; key < count; ++key) {
            if (symbols[key * perKey + level] == symbol)
                return {static_cast<xcb_keycode_t>(first + key), level == 1};
        }
    }
    throw DesktopFailure("the keyboard layout has no key for symbol " + std::to_string(symbol));
}

xcb_keycode_t Keyboard::keyCode(KeySymbol symbol) const
{
    return place(symbol).code;
}

bool Keyboard::isGrabbed(KeySymbol symbol, std::uint16_t modifiers) const
{
    auto* connection = connection_.get();
    const auto code = keyCode(symbol);
    // A grab is refused where another client has one. The server is held meanwhile, so that this look can
    // never be in the way of that client.
    xcb_grab_server(connection);
    const auto cookie = xcb_grab_key_checked(connection, 0, connection_.root(), modifiers, code,
                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_key(connection, code, connection_.root(), modifiers);
    xcb_ungrab_server(connection);
    return own(xcb_request_check(connection, cookie)) != nullptr;
}

bool Keyboard::isGrabbed() const
{
    auto* connection = connection_.get();
    xcb_grab_server(connection);
    const auto cookie = xcb_grab_keyboard(connection, 0, connection_.root(), XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    // Without effect if the grab is another client's.
    xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    xcb_ungrab_server(connection);
    const auto reply = own(xcb_grab_keyboard_reply(connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

void Keyboard::fake(std::uint8_t eventType, xcb_keycode_t code)
{
    constexpr std::uint8_t coreKeyboard = 0;
    // The extension's events for keys have the order of the core protocol's, one behind its first.
    const auto deviceEventType =
        static_cast<std::uint8_t>(firstInputEvent_ + XCB_INPUT_DEVICE_KEY_PRESS + eventType - XCB_KEY_PRESS);
    xcb_test_fake_input(connection_.get(), ownDevice_ ? deviceEventType : eventType, code, XCB_CURRENT_TIME,
                        XCB_WINDOW_NONE, 0, 0, ownDevice_.value_or(coreKeyboard));
    connection_.flush();
}

} // namespace tessel::desktop
