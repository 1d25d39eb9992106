#include "X11/FocusRequest.h"

#include <algorithm>

namespace tessel {

void requestOfWindowManager(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window,
                            xcb_atom_t request, const std::array<std::uint32_t, 5>& details)
{
    constexpr std::uint8_t bitsPerUnit = 32;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = bitsPerUnit;
    message.window = window;
    message.type = request;
    std::copy(details.begin(), details.end(), message.data.data32);
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
}

void requestActivation(xcb_connection_t* connection, xcb_window_t root, const X11Atoms& atoms,
                       xcb_window_t window, xcb_timestamp_t userTime, xcb_window_t currentlyActive)
{
    // Every activation here is something that the user has just asked for, with a key or a click (EWMH
    // section 3, source indication). Window managers refuse such a request only when it is older than what
    // the user did elsewhere.
    constexpr std::uint32_t directUserAction = 2;
    requestOfWindowManager(connection, root, window, atoms.netActiveWindow,
                           {directUserAction, userTime, currentlyActive});
}

void raiseAndFocus(xcb_connection_t* connection, xcb_window_t window, xcb_timestamp_t userTime)
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, window, userTime);
}

} // namespace tessel
