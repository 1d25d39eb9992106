#include "Pointer.h"

#include <xcb/xtest.h>

namespace tessel::desktop {

Pointer::Pointer(XConnection& connection)
    : connection_(connection)
{}

void Pointer::moveTo(Place place)
{
    constexpr std::uint8_t absolute = 0;
    xcb_test_fake_input(connection_.get(), XCB_MOTION_NOTIFY, absolute, XCB_CURRENT_TIME, connection_.root(),
                        static_cast<std::int16_t>(place.x), static_cast<std::int16_t>(place.y), 0);
    connection_.waitUntil("the pointer at its new place", [&] { return location() == place; });
}

void Pointer::press(PointerButton button)
{
    fake(XCB_BUTTON_PRESS, button);
}

void Pointer::release(PointerButton button)
{
    fake(XCB_BUTTON_RELEASE, button);
}

void Pointer::click(PointerButton button)
{
    press(button);
    release(button);
}

void Pointer::doubleClick(PointerButton button)
{
    for (const int eventType : {XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE, XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE})
        request(static_cast<std::uint8_t>(eventType), button);
    connection_.synchronize();
}

void Pointer::fake(std::uint8_t eventType, PointerButton button)
{
    request(eventType, button);
    connection_.synchronize();
}

void Pointer::request(std::uint8_t eventType, PointerButton button)
{
    xcb_test_fake_input(connection_.get(), eventType, static_cast<std::uint8_t>(button), XCB_CURRENT_TIME,
                        XCB_WINDOW_NONE, 0, 0, 0);
}

Place Pointer::location() const
{
    const auto cookie = xcb_query_pointer(connection_.get(), connection_.root());
    const auto reply = own(xcb_query_pointer_reply(connection_.get(), cookie, nullptr));
    if (!reply)
        throw DesktopFailure("the X server has gone");
    return {reply->root_x, reply->root_y};
}

} // namespace tessel::desktop
