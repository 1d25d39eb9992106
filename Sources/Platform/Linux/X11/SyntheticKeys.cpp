#include "X11/SyntheticKeys.h"

#include <xcb/xtest.h>

namespace tessel {

namespace {

void fakeKey(X11Connection& connection, std::uint8_t kind, Keycode key)
{
    constexpr std::uint8_t coreKeyboard = 0;
    xcb_test_fake_input(connection.raw(), kind, key, XCB_CURRENT_TIME, noWindow, 0, 0, coreKeyboard);
}

} // namespace

void pressKey(X11Connection& connection, Keycode key)
{
    fakeKey(connection, XCB_KEY_PRESS, key);
}

void releaseKey(X11Connection& connection, Keycode key)
{
    fakeKey(connection, XCB_KEY_RELEASE, key);
}

void releaseKeys(X11Connection& connection, const KeySet& keys)
{
    for (std::size_t key = 0; key < keys.size(); ++key)
        if (keys[key])
            releaseKey(connection, static_cast<Keycode>(key));
}

void pressKeys(X11Connection& connection, const KeySet& keys)
{
    for (std::size_t key = 0; key < keys.size(); ++key)
        if (keys[key])
            pressKey(connection, static_cast<Keycode>(key));
}

} // namespace tessel
