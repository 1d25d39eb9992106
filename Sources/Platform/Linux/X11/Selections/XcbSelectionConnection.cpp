#include "X11/Selections/XcbSelectionConnection.h"

#include <array>
#include <cstdlib>
#include <cstring>

#include <xcb/xfixes.h>

#include "X11/Selections/SelectionCoordinator.h"

namespace tessel {

namespace {

/// What Xlib and XCB hand over must be freed with `free`.
struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Value>
using Received = std::unique_ptr<Value, Free>;

/// The bit that marks events that another client has sent.
constexpr std::uint8_t sentEventBit = 0x80;

} // namespace

std::unique_ptr<XcbSelectionConnection> XcbSelectionConnection::open(const std::string& displayName)
{
    int screen = 0;
    xcb_connection_t* connection = xcb_connect(displayName.empty() ? nullptr : displayName.c_str(), &screen);
    std::unique_ptr<XcbSelectionConnection> opened(new XcbSelectionConnection(connection));
    if (opened->isLost() || !opened->prepare())
        return nullptr;
    return opened;
}

XcbSelectionConnection::XcbSelectionConnection(xcb_connection_t* connection)
    : connection_(connection)
{}

XcbSelectionConnection::~XcbSelectionConnection() = default;

bool XcbSelectionConnection::prepare()
{
    xcb_prefetch_extension_data(connection_.get(), &xcb_xfixes_id);
    internAtoms();
    if (!prepareFixes())
        return false;
    constexpr std::size_t bytesPerUnit = 4;
    maximumRequestBytes_ = bytesPerUnit * xcb_get_setup(connection_.get())->maximum_request_length;
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
    ownerWindow_ = createWindow();
    constexpr std::uint32_t ownerGone = XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;
    constexpr std::uint32_t ownerChanged = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER | ownerGone;
    xcb_xfixes_select_selection_input(connection_.get(), ownerWindow_, atoms_.clipboard, ownerChanged);
    xcb_xfixes_select_selection_input(connection_.get(), ownerWindow_, atoms_.clipboardManager, ownerGone);
    // The answers also say that the server has come to the requests before them: from now on no change of
    // owner is missed.
    const auto clipboardOwner = ownerOf(atoms_.clipboard);
    const auto clipboardManager = ownerOf(atoms_.clipboardManager);
    isClipboardOwned_ = clipboardOwner && *clipboardOwner != noWindow;
    isClipboardManagerFree_ = clipboardManager == noWindow;
    return clipboardOwner && clipboardManager;
}

/// None: the connection is broken.
std::optional<WindowID> XcbSelectionConnection::ownerOf(AtomID selection) const
{
    const auto cookie = xcb_get_selection_owner(connection_.get(), selection);
    const Received<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_.get(), cookie, nullptr));
    if (!reply)
        return std::nullopt;
    return reply->owner;
}

bool XcbSelectionConnection::prepareFixes()
{
    const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(connection_.get(), &xcb_xfixes_id);
    if (!fixes || !fixes->present)
        return false;
    firstFixesEvent_ = fixes->first_event;
    // The extension must be greeted before it is used; owner notifications are in every version.
    const auto cookie =
        xcb_xfixes_query_version(connection_.get(), XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION);
    const Received<xcb_xfixes_query_version_reply_t> reply(
        xcb_xfixes_query_version_reply(connection_.get(), cookie, nullptr));
    return reply != nullptr;
}

void XcbSelectionConnection::internAtoms()
{
    // All questions first, then all answers: one round trip.
    std::deque<std::pair<AtomID*, xcb_intern_atom_cookie_t>> questions;
    const auto ask = [&](AtomID& atom, std::string_view name) {
        questions.emplace_back(&atom, xcb_intern_atom(connection_.get(), 0,
                                                      static_cast<std::uint16_t>(name.size()), name.data()));
    };
    for (const SelectionAtoms::Name& entry : SelectionAtoms::names())
        ask(atoms_.*entry.member, entry.name);
    for (std::size_t index = 0; index < SelectionAtoms::transferSlotCount; ++index)
        ask(atoms_.transferSlots[index], SelectionAtoms::transferSlotName(index));
    for (const auto& [atom, cookie] : questions) {
        const Received<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection_.get(), cookie, nullptr));
        *atom = reply ? reply->atom : noAtom;
    }
}

int XcbSelectionConnection::fileDescriptor() const
{
    return xcb_get_file_descriptor(connection_.get());
}

bool XcbSelectionConnection::isLost() const
{
    return xcb_connection_has_error(connection_.get()) != 0;
}

XcbSelectionConnection::Backlog XcbSelectionConnection::dispatch(SelectionCoordinator& coordinator)
{
    // Reading a reply can bring events into the queue without the descriptor becoming readable, so both are
    // emptied.
    for (int turn = 0; turn < mostEventsAtOnce; ++turn) {
        if (dispatchEvent(coordinator) || dispatchProperty(coordinator))
            continue;
        flush();
        // Sending, too, reads what comes meanwhile when the server does not take everything at once.
        const Received<xcb_generic_event_t> event(xcb_poll_for_queued_event(connection_.get()));
        if (!event)
            return Backlog::none;
        dispatchEvent(coordinator, *event);
    }
    flush();
    return Backlog::some;
}

void XcbSelectionConnection::flush()
{
    xcb_flush(connection_.get());
}

bool XcbSelectionConnection::dispatchEvent(SelectionCoordinator& coordinator)
{
    const Received<xcb_generic_event_t> event(xcb_poll_for_event(connection_.get()));
    if (!event)
        return false;
    dispatchEvent(coordinator, *event);
    return true;
}

void XcbSelectionConnection::dispatchEvent(SelectionCoordinator& coordinator,
                                           const xcb_generic_event_t& event)
{
    const Moment now = std::chrono::steady_clock::now();
    const int kind = event.response_type & ~sentEventBit;
    if (kind == 0)
        return dispatchError(coordinator, reinterpret_cast<const xcb_generic_error_t&>(event));
    if (kind == firstFixesEvent_ + XCB_XFIXES_SELECTION_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        const auto reason = change.subtype == XCB_XFIXES_SELECTION_EVENT_SELECTION_WINDOW_DESTROY
                                ? OwnerChangeReason::windowDestroyed
                            : change.subtype == XCB_XFIXES_SELECTION_EVENT_SELECTION_CLIENT_CLOSE
                                ? OwnerChangeReason::clientClosed
                                : OwnerChangeReason::ownerSet;
        const bool isSet = reason == OwnerChangeReason::ownerSet;
        const ServerTime time = isSet ? change.timestamp : change.selection_timestamp;
        return coordinator.ownerChanged({change.selection, change.owner, reason, time}, now);
    }
    switch (kind) {
    case XCB_SELECTION_NOTIFY: {
        const auto& notice = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
        return coordinator.selectionNotified(
            {notice.requestor, notice.selection, notice.target, notice.property, notice.time}, now);
    }
    case XCB_SELECTION_REQUEST: {
        const auto& request = reinterpret_cast<const xcb_selection_request_event_t&>(event);
        return coordinator.selectionRequested({request.owner, request.requestor, request.selection,
                                               request.target, request.property, request.time},
                                              now);
    }
    case XCB_SELECTION_CLEAR: {
        const auto& loss = reinterpret_cast<const xcb_selection_clear_event_t&>(event);
        return coordinator.selectionCleared(loss.selection, loss.time);
    }
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const auto changeKind =
            change.state == XCB_PROPERTY_DELETE ? PropertyChangeKind::deleted : PropertyChangeKind::newValue;
        return coordinator.propertyChanged({change.window, change.atom, changeKind, change.time}, now);
    }
    case XCB_DESTROY_NOTIFY:
        return coordinator.windowGone(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
    default:
        return;
    }
}

/// A requestor can die between its request and our answer.
void XcbSelectionConnection::dispatchError(SelectionCoordinator& coordinator,
                                           const xcb_generic_error_t& error)
{
    if (error.error_code == XCB_WINDOW)
        coordinator.windowGone(error.resource_id);
}

bool XcbSelectionConnection::dispatchProperty(SelectionCoordinator& coordinator)
{
    if (pendingReads_.empty())
        return false;
    const PendingRead read = pendingReads_.front();
    pendingReads_.pop_front();
    const Received<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_.get(), read.cookie, nullptr));
    PropertySlice slice;
    slice.window = read.window;
    slice.property = read.property;
    if (reply) {
        slice.type = reply->type;
        slice.format = reply->format;
        slice.bytesAfter = reply->bytes_after;
        slice.bytes = {static_cast<const std::byte*>(xcb_get_property_value(reply.get())),
                       static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
    }
    coordinator.propertyArrived(slice, std::chrono::steady_clock::now());
    return true;
}

WindowID XcbSelectionConnection::createWindow()
{
    const WindowID window = xcb_generate_id(connection_.get());
    const std::array<std::uint32_t, 2> values = {1, XCB_EVENT_MASK_PROPERTY_CHANGE};
    xcb_create_window(connection_.get(), 0, window, root_, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    return window;
}

WindowID XcbSelectionConnection::createRequestor()
{
    return createWindow();
}

void XcbSelectionConnection::destroyRequestor(WindowID window)
{
    xcb_destroy_window(connection_.get(), window);
}

void XcbSelectionConnection::convertSelection(const SelectionRequest& conversion)
{
    xcb_convert_selection(connection_.get(), conversion.requestor, conversion.selection, conversion.target,
                          conversion.property, conversion.time);
}

void XcbSelectionConnection::readProperty(WindowID window, AtomID property, std::size_t offset,
                                          std::size_t length, AfterReading afterwards)
{
    constexpr std::size_t bytesPerUnit = 4;
    const auto cookie =
        xcb_get_property(connection_.get(), afterwards == AfterReading::deleteWhenComplete, window, property,
                         XCB_GET_PROPERTY_TYPE_ANY, static_cast<std::uint32_t>(offset / bytesPerUnit),
                         static_cast<std::uint32_t>(length / bytesPerUnit));
    pendingReads_.push_back({cookie, window, property});
}

void XcbSelectionConnection::requestTimestamp()
{
    xcb_change_property(connection_.get(), XCB_PROP_MODE_APPEND, ownerWindow_, atoms_.ownTimestamp,
                        atoms_.integer, 32, 0, nullptr);
}

void XcbSelectionConnection::setSelectionOwner(WindowID owner, AtomID selection, ServerTime time)
{
    xcb_set_selection_owner(connection_.get(), owner, selection, time);
}

void XcbSelectionConnection::announceManager(AtomID selection, ServerTime time)
{
    constexpr std::string_view name = "MANAGER";
    const auto cookie =
        xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Received<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_.get(), cookie, nullptr));
    if (!reply)
        return;
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = root_;
    message.type = reply->atom;
    message.data.data32[0] = time;
    message.data.data32[1] = selection;
    message.data.data32[2] = ownerWindow_;
    xcb_send_event(connection_.get(), 0, root_, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
}

void XcbSelectionConnection::changeProperty(WindowID window, AtomID property, AtomID type, int format,
                                            std::span<const std::byte> bytes)
{
    const std::size_t items = bytes.size() / static_cast<std::size_t>(format / 8);
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window, property, type,
                        static_cast<std::uint8_t>(format), static_cast<std::uint32_t>(items), bytes.data());
}

void XcbSelectionConnection::notifyRequestor(const SelectionNotice& notice)
{
    // Every event is 32 bytes on the wire, whatever the size of its structure.
    xcb_selection_notify_event_t notify = {};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.requestor = notice.requestor;
    notify.selection = notice.selection;
    notify.target = notice.target;
    notify.property = notice.property;
    notify.time = notice.time;
    std::array<char, 32> event = {};
    std::memcpy(event.data(), &notify, sizeof notify);
    xcb_send_event(connection_.get(), 0, notice.requestor, XCB_EVENT_MASK_NO_EVENT, event.data());
}

void XcbSelectionConnection::select(WindowID window, std::uint32_t eventMask)
{
    xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &eventMask);
}

void XcbSelectionConnection::watchRequestor(WindowID window)
{
    select(window, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

void XcbSelectionConnection::unwatchRequestor(WindowID window)
{
    select(window, XCB_EVENT_MASK_NO_EVENT);
}

} // namespace tessel
