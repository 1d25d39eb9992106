#include "Typist.h"

#include <stdexcept>

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include "ChildProcess.h"
#include "X11/X11Reply.h"
#include "X11/XkbProtocol.h"

namespace tessel {

namespace {

constexpr std::uint8_t deviceKeyPress = 1; // Offset of the extension's event (XInput 1.5).
constexpr std::uint8_t deviceKeyRelease = 2;

} // namespace

Typist::Typist()
    : connection_(xcb_connect(nullptr, nullptr))
{
    firstInputEvent_ = xcb_get_extension_data(connection_, &xcb_input_id)->first_event;
    xcb_discard_reply(connection_, xcb_input_xi_query_version(connection_, 2, 2).sequence);
    xcb_discard_reply(connection_, xcb_xkb_use_extension(connection_, 1, 0).sequence);
    keyboard_ = findKeyboard(DeviceKeys::Kind::physical);
    xtest_ = findKeyboard(DeviceKeys::Kind::synthetic);
    xcb_discard_reply(connection_, xcb_input_open_device(connection_, keyboard_).sequence);
    xcb_discard_reply(connection_, xcb_input_open_device(connection_, xtest_).sequence);
}

Typist::~Typist()
{
    for (std::size_t key = 0; key < 256; ++key)
        if (keysDown()[key])
            release(static_cast<Keycode>(key));
    synchronize();
    xcb_disconnect(connection_);
}

std::uint8_t Typist::findKeyboard(DeviceKeys::Kind kind)
{
    const X11Reply<xcb_input_xi_query_device_reply_t> reply(xcb_input_xi_query_device_reply(
        connection_, xcb_input_xi_query_device(connection_, XCB_INPUT_DEVICE_ALL), nullptr));
    if (!reply)
        throw std::runtime_error("The test server has no XInput 2.");
    auto devices = xcb_input_xi_query_device_infos_iterator(reply.get());
    for (; devices.rem > 0; xcb_input_xi_device_info_next(&devices)) {
        const std::string name(xcb_input_xi_device_info_name(devices.data), devices.data->name_len);
        const bool isSynthetic = name.find("XTEST") != std::string::npos;
        const bool isWanted = isSynthetic == (kind == DeviceKeys::Kind::synthetic);
        if (isWanted && devices.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD)
            return static_cast<std::uint8_t>(devices.data->deviceid);
    }
    throw std::runtime_error("The test server lacks a keyboard.");
}

void Typist::fake(std::uint8_t kind, Keycode key)
{
    xcb_test_fake_input(connection_, static_cast<std::uint8_t>(firstInputEvent_ + kind), key,
                        XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, keyboard_);
    synchronize();
}

void Typist::press(Keycode key)
{
    fake(deviceKeyPress, key);
}

void Typist::release(Keycode key)
{
    fake(deviceKeyRelease, key);
}

void Typist::tap(Keycode key)
{
    press(key);
    release(key);
}

void Typist::tapWith(const std::vector<Keycode>& modifiers, Keycode key)
{
    for (const Keycode modifier : modifiers)
        press(modifier);
    tap(key);
    for (const Keycode modifier : modifiers)
        release(modifier);
}

void Typist::movePointer(int x, int y)
{
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    xcb_warp_pointer(connection_, XCB_WINDOW_NONE, screen->root, 0, 0, 0, 0, static_cast<std::int16_t>(x),
                     static_cast<std::int16_t>(y));
    synchronize();
}

void Typist::setLayout(const std::string& layout, const std::string& variant)
{
    if (!runProgram({"setxkbmap", "-layout", layout, "-variant", variant}))
        throw std::runtime_error("setxkbmap failed.");
}

void Typist::lockGroup(std::uint8_t group)
{
    xcb_xkb_latch_lock_state(connection_, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    synchronize();
}

std::uint8_t Typist::lockedModifiers()
{
    const X11Reply<xcb_xkb_get_state_reply_t> reply(xcb_xkb_get_state_reply(
        connection_, xcb_xkb_get_state(connection_, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return reply ? reply->lockedMods : std::uint8_t{0};
}

KeySet Typist::keysDown()
{
    const X11Reply<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection_, xcb_query_keymap(connection_), nullptr));
    KeySet keys;
    for (std::size_t key = 0; reply && key < keys.size(); ++key)
        keys[key] = (reply->keys[key / 8] >> (key % 8) & 1) != 0;
    return keys;
}

KeySet Typist::keysDownOnXTest()
{
    return keysDownOn(xtest_);
}

KeySet Typist::keysDownOn(std::uint8_t device)
{
    const X11Reply<xcb_input_query_device_state_reply_t> reply(xcb_input_query_device_state_reply(
        connection_, xcb_input_query_device_state(connection_, device), nullptr));
    KeySet keys;
    if (!reply)
        return keys;
    const auto* state = reinterpret_cast<const xcb_input_key_state_t*>(reply.get() + 1);
    for (std::size_t key = 0; key < keys.size(); ++key)
        keys[key] = (state->keys[key / 8] >> (key % 8) & 1) != 0;
    return keys;
}

void Typist::synchronize()
{
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

} // namespace tessel
