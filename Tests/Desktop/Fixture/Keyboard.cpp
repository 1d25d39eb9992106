#include "Keyboard.h"

#include <xcb/xtest.h>

#include <iterator>
#include <string>
#include <thread>

namespace tessel::desktop {

Keyboard::Keyboard(XConnection& connection)
    : connection_(connection)
{}

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
    std::vector<xcb_keycode_t> down;
    for (unsigned code = 0; reply && code < 256; ++code) {
        const unsigned eightKeys = reply->keys[code / 8];
        if ((eightKeys >> (code % 8) & 1U) != 0)
            down.push_back(static_cast<xcb_keycode_t>(code));
    }
    return down;
}

bool Keyboard::isAnyKeyDown() const
{
    return !keysDown().empty();
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
    xcb_test_fake_input(connection_.get(), eventType, code, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
    connection_.flush();
}

} // namespace tessel::desktop
