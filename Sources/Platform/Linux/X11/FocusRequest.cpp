#include "X11/FocusRequest.h"

#include <cstdint>

namespace tessel {

void requestActivation(xcb_connection_t* connection, xcb_window_t root, const X11Atoms& atoms,
                       xcb_window_t window, xcb_timestamp_t userTime, xcb_window_t currentlyActive)
{
    // Every activation here is something that the user has just asked for, with a key or a click (EWMH
    // section 3, source indication). Window managers refuse such a request only when it is older than what
    // the user did elsewhere.
    constexpr std::uint32_t directUserAction = 2;
    constexpr std::uint8_t bitsPerUnit = 32;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = bitsPerUnit;
    message.window = window;
    message.type = atoms.netActiveWindow;
    message.data.data32[0] = directUserAction;
    message.data.data32[1] = userTime;
    message.data.data32[2] = currentlyActive;
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
}

void raiseAndFocus(xcb_connection_t* connection, xcb_window_t window, xcb_timestamp_t userTime)
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, window, userTime);
}

} // namespace tessel
