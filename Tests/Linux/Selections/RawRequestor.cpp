#include "RawRequestor.h"

#include <cstdlib>
#include <stdexcept>

namespace tessel {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Value>
using Received = std::unique_ptr<Value, Free>;

} // namespace

RawRequestor::RawRequestor(const std::string& display)
    : connection_(xcb_connect(display.c_str(), nullptr))
{
    if (xcb_connection_has_error(connection_.get()) != 0)
        throw std::runtime_error("cannot connect to the X display");
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
    window_ = xcb_generate_id(connection_.get());
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_.get(), 0, window_, screen->root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    property_ = intern("RAW_REQUESTOR");
}

xcb_atom_t RawRequestor::intern(const std::string& name)
{
    const auto cookie =
        xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Received<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_.get(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_NONE);
}

void RawRequestor::request(const std::string& selection, const std::string& target)
{
    xcb_convert_selection(connection_.get(), window_, intern(selection), intern(target), property_,
                          XCB_CURRENT_TIME);
    xcb_flush(connection_.get());
}

bool RawRequestor::ask(const std::string& selection, const std::string& target)
{
    request(selection, target);
    return waitForNotice();
}

bool RawRequestor::waitForNotice()
{
    while (const Received<xcb_generic_event_t> event{xcb_wait_for_event(connection_.get())}) {
        if ((event->response_type & 0x7F) != XCB_SELECTION_NOTIFY)
            continue;
        return reinterpret_cast<const xcb_selection_notify_event_t&>(*event).property != XCB_NONE;
    }
    throw std::runtime_error("the connection to the X display is broken");
}

void RawRequestor::waitForNewValue()
{
    while (const Received<xcb_generic_event_t> event{xcb_wait_for_event(connection_.get())}) {
        if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY)
            continue;
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
        if (change.atom == property_ && change.state == XCB_PROPERTY_NEW_VALUE)
            return;
    }
    throw std::runtime_error("the connection to the X display is broken");
}

bool RawRequestor::comesInIncrements()
{
    const auto cookie =
        xcb_get_property(connection_.get(), 0, window_, property_, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    const Received<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_.get(), cookie, nullptr));
    return reply && reply->type == intern("INCR");
}

std::string RawRequestor::takePiece()
{
    constexpr std::uint32_t everything = 1U << 28;
    const auto cookie =
        xcb_get_property(connection_.get(), 1, window_, property_, XCB_GET_PROPERTY_TYPE_ANY, 0, everything);
    const Received<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_.get(), cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

std::string RawRequestor::takeAll()
{
    const bool isIncremental = comesInIncrements();
    std::string all = takePiece();
    if (!isIncremental)
        return all;
    all.clear();
    while (true) {
        waitForNewValue();
        const std::string piece = takePiece();
        if (piece.empty())
            return all;
        all += piece;
    }
}

xcb_window_t RawRequestor::ownerOf(const std::string& selection)
{
    const auto cookie = xcb_get_selection_owner(connection_.get(), intern(selection));
    const Received<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_.get(), cookie, nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_NONE);
}

void RawRequestor::own(const std::string& selection)
{
    xcb_set_selection_owner(connection_.get(), window_, intern(selection), XCB_CURRENT_TIME);
    xcb_flush(connection_.get());
}

void RawRequestor::waitForRequest(const std::string& selection)
{
    const xcb_atom_t atom = intern(selection);
    while (const Received<xcb_generic_event_t> event{xcb_wait_for_event(connection_.get())}) {
        if ((event->response_type & 0x7F) == XCB_SELECTION_REQUEST &&
            reinterpret_cast<const xcb_selection_request_event_t&>(*event).selection == atom)
            return;
    }
    throw std::runtime_error("the connection to the X display is broken");
}

void RawRequestor::disconnectOwnerOf(const std::string& selection)
{
    xcb_kill_client(connection_.get(), ownerOf(selection));
    xcb_flush(connection_.get());
}

} // namespace tessel
