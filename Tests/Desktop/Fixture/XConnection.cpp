#include "XConnection.h"

#include <poll.h>

#include <algorithm>
#include <cstring>

namespace tessel::desktop {

namespace {

/// How often a condition is looked at again without an event.
constexpr std::chrono::milliseconds lookAgain{20};

/// Far more than any property here holds, in 4-byte units.
constexpr std::uint32_t longestProperty = 1 << 20;

} // namespace

XConnection::XConnection(const std::string& displayName)
    : connection_(xcb_connect(displayName.c_str(), nullptr))
    , screen_(nullptr)
{
    if (xcb_connection_has_error(connection_) != 0) {
        xcb_disconnect(connection_);
        throw DesktopFailure("cannot reach the X server " + displayName);
    }
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_, root(), XCB_CW_EVENT_MASK, &events);
    synchronize();
}

XConnection::~XConnection()
{
    xcb_disconnect(connection_);
}

xcb_atom_t XConnection::atom(std::string_view name)
{
    if (const auto known = atoms_.find(name); known != atoms_.end())
        return known->second;
    const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = own(xcb_intern_atom_reply(connection_, cookie, nullptr));
    if (!reply)
        throw DesktopFailure("the X server has gone");
    return atoms_.emplace(name, reply->atom).first->second;
}

void XConnection::synchronize()
{
    own(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

std::optional<std::string> XConnection::propertyBytes(xcb_window_t window, std::string_view name)
{
    const auto cookie =
        xcb_get_property(connection_, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
    const auto reply = own(xcb_get_property_reply(connection_, cookie, nullptr));
    if (!reply || reply->type == XCB_NONE)
        return std::nullopt;
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return std::string(bytes, static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
}

std::vector<std::uint32_t> XConnection::propertyItems(xcb_window_t window, std::string_view name)
{
    const auto bytes = propertyBytes(window, name).value_or("");
    std::vector<std::uint32_t> items(bytes.size() / sizeof(std::uint32_t));
    if (!items.empty())
        std::memcpy(items.data(), bytes.data(), items.size() * sizeof(std::uint32_t));
    return items;
}

xcb_window_t XConnection::selectionOwner(std::string_view selection)
{
    const auto cookie = xcb_get_selection_owner(connection_, atom(selection));
    const auto reply = own(xcb_get_selection_owner_reply(connection_, cookie, nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

void XConnection::waitUntil(std::string_view awaited, const std::function<bool()>& condition,
                            Deadline deadline)
{
    while (true) {
        while (own(xcb_poll_for_event(connection_))) {
            // Events only announce that something may have changed.
        }
        if (condition())
            return;
        if (xcb_connection_has_error(connection_) != 0)
            throw DesktopFailure("the X server has gone while waiting for: " + std::string(awaited));
        if (deadline.hasPassed())
            throw DesktopFailure("waited in vain for: " + std::string(awaited));
        xcb_flush(connection_);
        awaitReadable(std::min(deadline.remaining(), lookAgain));
    }
}

Reply<xcb_generic_event_t> XConnection::nextEvent(Deadline deadline)
{
    while (true) {
        if (auto event = own(xcb_poll_for_event(connection_)))
            return event;
        if (xcb_connection_has_error(connection_) != 0)
            throw DesktopFailure("the X server has gone");
        if (!awaitReadable(deadline.remaining()))
            return nullptr;
    }
}

bool XConnection::awaitReadable(std::chrono::milliseconds patience) const
{
    pollfd descriptor{xcb_get_file_descriptor(connection_), POLLIN, 0};
    return ::poll(&descriptor, 1, static_cast<int>(patience.count())) > 0;
}

} // namespace tessel::desktop
