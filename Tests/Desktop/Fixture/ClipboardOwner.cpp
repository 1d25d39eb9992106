#include "ClipboardOwner.h"

#include <xcb/xfixes.h>

#include <algorithm>
#include <vector>

namespace tessel::desktop {

namespace {

/// Larger values go in pieces of this size, in bytes; well below the server's longest request.
constexpr std::size_t pieceSize = 128 * 1024;

constexpr std::uint8_t eventTypeMask = 0x7f;

std::uint8_t firstFixesEvent(xcb_connection_t* connection)
{
    const auto* extension = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0)
        throw DesktopFailure("the X server has no XFixes extension");
    own(xcb_xfixes_query_version_reply(connection, xcb_xfixes_query_version(connection, 5, 0), nullptr));
    return extension->first_event;
}

} // namespace

ClipboardOwner::ClipboardOwner(const std::string& displayName)
    : connection_(displayName)
    , window_(xcb_generate_id(connection_.get()))
{
    auto* connection = connection_.get();
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window_, connection_.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    firstFixesEvent(connection);
    xcb_xfixes_select_selection_input(connection, window_, connection_.atom("CLIPBOARD"),
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    for (const auto* name :
         {"CLIPBOARD", "TARGETS", "TIMESTAMP", "INCR", "ATOM", "INTEGER", "TESSEL_TIME", "TESSEL_END"})
        connection_.atom(name);
    connection_.synchronize();
    thread_ = std::thread([this] { serve(); });
}

ClipboardOwner::~ClipboardOwner()
{
    xcb_client_message_event_t end{};
    end.response_type = XCB_CLIENT_MESSAGE;
    end.format = 32;
    end.window = window_;
    end.type = connection_.atom("TESSEL_END");
    xcb_send_event(connection_.get(), 0, window_, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&end));
    connection_.flush();
    thread_.join();
}

void ClipboardOwner::copyText(const std::string& text)
{
    copy({{"UTF8_STRING", text}, {"text/plain;charset=utf-8", text}});
}

void ClipboardOwner::copyPng(const std::string& bytes)
{
    copy({{"image/png", bytes}});
}

void ClipboardOwner::copy(Contents contents)
{
    const auto time = serverTime();
    {
        const std::lock_guard lock(mutex_);
        for (const auto& [target, bytes] : contents)
            connection_.atom(target); // Known before anybody can ask for it.
        contents_ = std::move(contents);
        requests_.clear();
        completions_.clear();
        ownedSince_ = time;
    }
    own(window_, time);
}

void ClipboardOwner::clear()
{
    own(XCB_WINDOW_NONE, serverTime());
}

void ClipboardOwner::own(xcb_window_t owner, xcb_timestamp_t time)
{
    std::unique_lock lock(mutex_);
    const auto before = ownerChanges_;
    xcb_set_selection_owner(connection_.get(), owner, connection_.atom("CLIPBOARD"), time);
    connection_.flush();
    if (!changed_.wait_until(lock, Deadline().moment(), [&] { return ownerChanges_ != before; }))
        throw DesktopFailure("waited in vain for: the server's announcement of a new CLIPBOARD owner");
}

xcb_timestamp_t ClipboardOwner::serverTime()
{
    std::unique_lock lock(mutex_);
    const auto before = timeAnswers_;
    // Appending nothing to a property yields an event with the server's time (ICCCM section 2.1).
    xcb_change_property(connection_.get(), XCB_PROP_MODE_APPEND, window_, connection_.atom("TESSEL_TIME"),
                        XCB_ATOM_INTEGER, 32, 0, nullptr);
    connection_.flush();
    if (!changed_.wait_until(lock, Deadline().moment(), [&] { return timeAnswers_ != before; }))
        throw DesktopFailure("waited in vain for: the server's time");
    return latestTime_;
}

int ClipboardOwner::requestCount(const std::string& target)
{
    const std::lock_guard lock(mutex_);
    return requests_[target];
}

void ClipboardOwner::waitForRequest(const std::string& target, Deadline deadline)
{
    std::unique_lock lock(mutex_);
    if (!changed_.wait_until(lock, deadline.moment(), [&] { return requests_[target] > 0; }))
        throw DesktopFailure("waited in vain for: a request for " + target);
}

void ClipboardOwner::waitForCompletion(const std::string& target, Deadline deadline)
{
    std::unique_lock lock(mutex_);
    const auto atom = connection_.atom(target);
    if (!changed_.wait_until(lock, deadline.moment(), [&] { return completions_[atom] > 0; }))
        throw DesktopFailure("waited in vain for: the whole of " + target + " to be received");
}

void ClipboardOwner::serve()
{
    // Not a poll of the descriptor: sending, on either thread, may also read, and what is read then is in the
    // queue with nothing left to wake a poll.
    while (const auto event = desktop::own(xcb_wait_for_event(connection_.get()))) {
        if (isOwnEnd(*event))
            return;
        handle(*event);
        connection_.flush();
    }
}

bool ClipboardOwner::isOwnEnd(const xcb_generic_event_t& event) const
{
    // Messages to the root window are seen on this connection, too.
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
    return (event.response_type & eventTypeMask) == XCB_CLIENT_MESSAGE && message.window == window_;
}

void ClipboardOwner::handle(const xcb_generic_event_t& event)
{
    const std::lock_guard lock(mutex_);
    const auto type = static_cast<std::uint8_t>(event.response_type & eventTypeMask);
    const auto* fixes = xcb_get_extension_data(connection_.get(), &xcb_xfixes_id);
    if (type == XCB_PROPERTY_NOTIFY)
        handleProperty(reinterpret_cast<const xcb_property_notify_event_t&>(event));
    else if (type == XCB_SELECTION_REQUEST)
        answer(reinterpret_cast<const xcb_selection_request_event_t&>(event));
    else if (type == fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY)
        ++ownerChanges_;
    changed_.notify_all();
}

void ClipboardOwner::handleProperty(const xcb_property_notify_event_t& event)
{
    if (event.window == window_) {
        latestTime_ = event.time;
        ++timeAnswers_;
        return;
    }
    if (event.state == XCB_PROPERTY_DELETE)
        continueTransfer({event.window, event.atom});
}

void ClipboardOwner::answer(const xcb_selection_request_event_t& request)
{
    // A requestor of old may leave the property out (ICCCM section 2.2).
    const auto property = request.property == XCB_NONE ? request.target : request.property;
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = request.time;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.property = provide(request, property) ? property : xcb_atom_t{XCB_NONE};
    xcb_send_event(connection_.get(), 0, request.requestor, 0, reinterpret_cast<const char*>(&notice));
}

bool ClipboardOwner::provide(const xcb_selection_request_event_t& request, xcb_atom_t property)
{
    if (request.target == connection_.atom("TARGETS")) {
        provideTargets(request, property);
        return true;
    }
    if (request.target == connection_.atom("TIMESTAMP")) {
        xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, request.requestor, property,
                            XCB_ATOM_INTEGER, 32, 1, &ownedSince_);
        return true;
    }
    for (const auto& [target, bytes] : contents_) {
        if (connection_.atom(target) != request.target)
            continue;
        ++requests_[target];
        provideBytes(request.requestor, property, request.target, bytes);
        return true;
    }
    return false;
}

void ClipboardOwner::provideTargets(const xcb_selection_request_event_t& request, xcb_atom_t property)
{
    std::vector<xcb_atom_t> targets{connection_.atom("TARGETS"), connection_.atom("TIMESTAMP")};
    for (const auto& [target, bytes] : contents_)
        targets.push_back(connection_.atom(target));
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, request.requestor, property, XCB_ATOM_ATOM,
                        32, static_cast<std::uint32_t>(targets.size()), targets.data());
}

void ClipboardOwner::provideBytes(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                                  const std::string& bytes)
{
    if (bytes.size() <= pieceSize) {
        xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, requestor, property, type, 8,
                            static_cast<std::uint32_t>(bytes.size()), bytes.data());
        return;
    }
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_.get(), requestor, XCB_CW_EVENT_MASK, &events);
    const auto size = static_cast<std::uint32_t>(bytes.size());
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, requestor, property,
                        connection_.atom("INCR"), 32, 1, &size);
    transfers_[{requestor, property}] = {type, bytes};
}

void ClipboardOwner::continueTransfer(TransferKey key)
{
    const auto found = transfers_.find(key);
    if (found == transfers_.end())
        return;
    auto& transfer = found->second;
    if (transfer.isComplete) {
        ++completions_[transfer.type];
        transfers_.erase(found);
        return;
    }
    // The last piece is an empty one.
    const auto size = std::min(pieceSize, transfer.bytes.size() - transfer.sent);
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, key.first, key.second, transfer.type, 8,
                        static_cast<std::uint32_t>(size), transfer.bytes.data() + transfer.sent);
    transfer.sent += size;
    transfer.isComplete = size == 0;
}

} // namespace tessel::desktop
