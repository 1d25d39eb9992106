#include "X11/StartupNotification.h"

#include <algorithm>
#include <iterator>

namespace tessel {

namespace {

/// Launchers make them of their own name, the program's, the host's, and some numbers.
constexpr std::size_t longestIdentifier = 1024;

/// Sends `message` with its final zero in pieces of the size of an event, the first one marked.
void broadcast(X11Connection& connection, xcb_window_t sender, const std::string& message)
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = sender;
    event.type = connection.atoms().netStartupInfoBegin;
    constexpr std::size_t pieceLength = sizeof event.data.data8;
    for (std::size_t offset = 0; offset <= message.size(); offset += pieceLength) {
        const std::size_t length = std::min(message.size() - offset, pieceLength);
        std::fill(std::begin(event.data.data8), std::end(event.data.data8), std::uint8_t{0});
        std::copy_n(message.data() + offset, length, std::begin(event.data.data8));
        xcb_send_event(connection.raw(), 0, connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&event));
        event.type = connection.atoms().netStartupInfo;
    }
}

} // namespace

void completeStartup(X11Connection& connection, std::string_view identifier)
{
    if (identifier.empty() || identifier.size() > longestIdentifier || !connection.isAlive())
        return;
    // The messages of one sender are put together by its window, so each has a window of its own.
    const xcb_window_t sender = xcb_generate_id(connection.raw());
    xcb_create_window(connection.raw(), 0, sender, connection.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    broadcast(connection, sender, completionMessage(identifier));
    xcb_destroy_window(connection.raw(), sender);
    connection.flush();
}

std::string completionMessage(std::string_view identifier)
{
    std::string message = "remove: ID=\"";
    for (const char character : identifier) {
        if (character == '"' || character == '\\')
            message += '\\';
        message += character;
    }
    return message + '"';
}

} // namespace tessel
