#include "RivalManager.h"

#include <array>
#include <cstring>
#include <stdexcept>

#include <xcb/xfixes.h>

#include "TestLoop.h"

namespace tessel {

RivalManager::RivalManager(const std::string& display, Greed greed)
    : greed_(greed)
    , connection_(xcb_connect(display.c_str(), nullptr))
{
    xcb_connection_t* connection = connection_.get();
    const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (xcb_connection_has_error(connection) != 0 || !fixes || !fixes->present)
        throw std::runtime_error("cannot watch the X display");
    firstFixesEvent_ = fixes->first_event;
    clipboard_ = intern("CLIPBOARD");
    utf8String_ = intern("UTF8_STRING");
    targets_ = intern("TARGETS");
    property_ = intern("RIVAL");
    mark_ = intern("RIVAL_MARK");
    stop_ = intern("RIVAL_STOP");
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    window_ = xcb_generate_id(connection);
    xcb_create_window(connection, 0, window_, screen->root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_xfixes_query_version(connection, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION);
    constexpr std::uint32_t everything = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                         XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                         XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;
    xcb_xfixes_select_selection_input(connection, window_, clipboard_, everything);
    intern("RIVAL"); // Answered when the server has come here: from now on nothing is missed.
    thread_ = std::thread([this] { run(); });
}

RivalManager::~RivalManager()
{
    tellOurselves(stop_);
    thread_.join();
}

std::string RivalManager::text() const
{
    const std::lock_guard lock(mutex_);
    return text_;
}

int RivalManager::ownershipChanges() const
{
    std::unique_lock lock(mutex_);
    const int mark = ++marksSent_;
    tellOurselves(mark_);
    if (!markSeen_.wait_for(lock, TestLoop::patience, [&] { return marksSeen_ >= mark; }))
        throw std::runtime_error("the X server does not answer the watch");
    return changes_;
}

xcb_atom_t RivalManager::intern(const std::string& name)
{
    const auto cookie =
        xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
        xcb_intern_atom_reply(connection_.get(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_NONE);
}

void RivalManager::tellOurselves(xcb_atom_t message) const
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window_;
    event.type = message;
    xcb_send_event(connection_.get(), 0, window_, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection_.get());
}

void RivalManager::run()
{
    // Not a poll of the descriptor: whoever sends on this connection, on either thread, may also read, and
    // what is read then is in the queue with nothing left to wake a poll.
    while (const std::unique_ptr<xcb_generic_event_t, Free> event{xcb_wait_for_event(connection_.get())}) {
        if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE &&
            reinterpret_cast<const xcb_client_message_event_t&>(*event).type == stop_)
            return;
        handle(*event);
        xcb_flush(connection_.get());
    }
}

void RivalManager::handle(const xcb_generic_event_t& event)
{
    const int kind = event.response_type & 0x7F;
    if (kind == firstFixesEvent_ + XCB_XFIXES_SELECTION_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        ownerChanged(change.owner, change.subtype);
    } else if (kind == XCB_SELECTION_NOTIFY) {
        received(reinterpret_cast<const xcb_selection_notify_event_t&>(event).property);
    } else if (kind == XCB_SELECTION_REQUEST) {
        serve(reinterpret_cast<const xcb_selection_request_event_t&>(event));
    } else if (kind == XCB_CLIENT_MESSAGE) {
        const std::lock_guard lock(mutex_);
        ++marksSeen_;
        markSeen_.notify_all();
    }
}

void RivalManager::ownerChanged(xcb_window_t owner, std::uint8_t kind)
{
    {
        const std::lock_guard lock(mutex_);
        ++changes_;
    }
    if (greed_ == Greed::watches || owner == window_)
        return;
    if (owner != XCB_NONE)
        xcb_convert_selection(connection_.get(), window_, clipboard_, utf8String_, property_,
                              XCB_CURRENT_TIME);
    else if (kind != XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER)
        take();
}

void RivalManager::received(xcb_atom_t property)
{
    if (property == XCB_NONE)
        return;
    constexpr std::uint32_t everything = 1U << 20;
    const auto cookie =
        xcb_get_property(connection_.get(), 1, window_, property_, XCB_GET_PROPERTY_TYPE_ANY, 0, everything);
    const std::unique_ptr<xcb_get_property_reply_t, Free> reply(
        xcb_get_property_reply(connection_.get(), cookie, nullptr));
    if (!reply)
        return;
    {
        const std::lock_guard lock(mutex_);
        text_ = {static_cast<const char*>(xcb_get_property_value(reply.get())),
                 static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
    }
    if (greed_ == Greed::takesEverything)
        take();
}

void RivalManager::take()
{
    xcb_set_selection_owner(connection_.get(), window_, clipboard_, XCB_CURRENT_TIME);
}

void RivalManager::serve(const xcb_selection_request_event_t& request)
{
    xcb_selection_notify_event_t notice = {};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.time = request.time;
    notice.property = request.property;
    if (request.target == targets_) {
        const std::array<xcb_atom_t, 2> list = {targets_, utf8String_};
        xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                            XCB_ATOM_ATOM, 32, list.size(), list.data());
    } else if (request.target == utf8String_) {
        xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                            utf8String_, 8, static_cast<std::uint32_t>(text_.size()), text_.data());
    } else {
        notice.property = XCB_NONE;
    }
    std::array<char, 32> event = {};
    std::memcpy(event.data(), &notice, sizeof notice);
    xcb_send_event(connection_.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, event.data());
}

} // namespace tessel
