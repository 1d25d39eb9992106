#include "ClipboardReader.h"

#include <cstring>

namespace tessel::desktop {

namespace {

constexpr std::uint8_t eventTypeMask = 0x7f;
constexpr std::uint32_t longestProperty = 1 << 24; // In 4-byte units.

} // namespace

ClipboardReader::ClipboardReader(const std::string& displayName)
    : connection_(displayName)
    , window_(xcb_generate_id(connection_.get()))
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window_, connection_.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    connection_.synchronize();
}

std::optional<std::string> ClipboardReader::read(const std::string& target, Deadline deadline)
{
    const auto property = connection_.atom("TESSEL_VALUE");
    xcb_convert_selection(connection_.get(), window_, connection_.atom("CLIPBOARD"), connection_.atom(target),
                          property, XCB_CURRENT_TIME);
    connection_.flush();
    const auto event = awaitEvent(XCB_SELECTION_NOTIFY, "the value of " + target, deadline);
    if (reinterpret_cast<const xcb_selection_notify_event_t&>(*event).property == XCB_NONE)
        return std::nullopt;
    xcb_atom_t type = XCB_NONE;
    auto bytes = takeProperty(property, type);
    if (type == connection_.atom("INCR"))
        return readPieces(property, deadline);
    return bytes;
}

std::vector<std::string> ClipboardReader::targets(Deadline deadline)
{
    const auto bytes = read("TARGETS", deadline).value_or("");
    std::vector<std::string> names;
    for (std::size_t offset = 0; offset + sizeof(xcb_atom_t) <= bytes.size(); offset += sizeof(xcb_atom_t)) {
        xcb_atom_t atom = XCB_NONE;
        std::memcpy(&atom, bytes.data() + offset, sizeof atom);
        const auto cookie = xcb_get_atom_name(connection_.get(), atom);
        const auto reply = own(xcb_get_atom_name_reply(connection_.get(), cookie, nullptr));
        if (reply)
            names.emplace_back(xcb_get_atom_name_name(reply.get()),
                               static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get())));
    }
    return names;
}

std::string ClipboardReader::readPieces(xcb_atom_t property, Deadline deadline)
{
    // Each deletion of the property asks for the next piece (ICCCM section 2.7.2); an empty one is the end.
    std::string bytes;
    while (true) {
        const auto event = awaitEvent(XCB_PROPERTY_NOTIFY, "the next piece of a value", deadline);
        const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
        if (notice.atom != property || notice.state != XCB_PROPERTY_NEW_VALUE)
            continue;
        xcb_atom_t type = XCB_NONE;
        const auto piece = takeProperty(property, type);
        if (type == connection_.atom("INCR"))
            continue;
        if (piece.empty())
            return bytes;
        bytes += piece;
    }
}

std::string ClipboardReader::takeProperty(xcb_atom_t property, xcb_atom_t& type)
{
    constexpr std::uint8_t deleteIt = 1;
    const auto cookie = xcb_get_property(connection_.get(), deleteIt, window_, property,
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
    const auto reply = own(xcb_get_property_reply(connection_.get(), cookie, nullptr));
    if (!reply)
        return {};
    type = reply->type;
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return {bytes, static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

Reply<xcb_generic_event_t> ClipboardReader::awaitEvent(std::uint8_t type, const std::string& awaited,
                                                       Deadline deadline)
{
    while (auto event = connection_.nextEvent(deadline)) {
        if ((event->response_type & eventTypeMask) == type)
            return event;
    }
    throw DesktopFailure("waited in vain for: " + awaited);
}

} // namespace tessel::desktop
