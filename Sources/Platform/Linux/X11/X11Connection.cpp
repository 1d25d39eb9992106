#include "X11/X11Connection.h"

#include <utility>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QSocketNotifier>
#include <xcb/render.h>
#include <xcb/shape.h>
#include <xcb/xcbext.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include "X11/XkbProtocol.h"

namespace tessel {

namespace {

const xcb_screen_t* screenOf(xcb_connection_t* connection, int number)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int index = 0; index < number && screens.rem > 1; ++index)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}

bool isPresent(xcb_connection_t* connection, xcb_extension_t* extension)
{
    const auto* data = xcb_get_extension_data(connection, extension);
    return data != nullptr && data->present != 0;
}

} // namespace

X11Connection::X11Connection(const std::string& displayName)
{
    int screenNumber = 0;
    connection_ = xcb_connect(displayName.empty() ? nullptr : displayName.c_str(), &screenNumber);
    if (xcb_connection_has_error(connection_) != 0)
        return;
    const auto* screen = screenOf(connection_, screenNumber);
    if (screen == nullptr)
        return;
    alive_ = true;
    root_ = screen->root;
    rootVisual_ = screen->root_visual;
    rootWidth_ = screen->width_in_pixels;
    rootHeight_ = screen->height_in_pixels;
    queryExtensions();
    atoms_ = internAtoms(connection_, screenNumber);
    createHelperWindow();
    installNotifier();
    // The extent of the root window follows the screens; its properties tell what the window manager does.
    selections_[root_][0] = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    applySelection(root_);
    flush();
}

X11Connection::~X11Connection()
{
    notifier_.reset();
    xcb_disconnect(connection_);
}

void X11Connection::queryExtensions()
{
    xcb_prefetch_extension_data(connection_, &xcb_test_id);
    xcb_prefetch_extension_data(connection_, &xcb_input_id);
    xcb_prefetch_extension_data(connection_, &xcb_xkb_id);
    xcb_prefetch_extension_data(connection_, &xcb_xfixes_id);
    xcb_prefetch_extension_data(connection_, &xcb_render_id);
    xcb_prefetch_extension_data(connection_, &xcb_shape_id);
    constexpr char waylandName[] = "XWAYLAND";
    const auto waylandCookie = xcb_query_extension(connection_, sizeof waylandName - 1, waylandName);

    extensions_.test = isPresent(connection_, &xcb_test_id);
    extensions_.input = isPresent(connection_, &xcb_input_id);
    extensions_.fixes = isPresent(connection_, &xcb_xfixes_id);
    extensions_.render = isPresent(connection_, &xcb_render_id);
    extensions_.shape = isPresent(connection_, &xcb_shape_id);
    if (extensions_.fixes)
        extensions_.fixesFirstEvent = xcb_get_extension_data(connection_, &xcb_xfixes_id)->first_event;
    const auto wayland = wait(xcb_query_extension_reply, waylandCookie);
    extensions_.wayland = wayland && wayland->present != 0;

    // An extension serves a client only after it has been told which version the client speaks.
    if (extensions_.fixes)
        xcb_discard_reply(connection_, xcb_xfixes_query_version(connection_, 2, 0).sequence);
    if (extensions_.input)
        xcb_discard_reply(connection_, xcb_input_xi_query_version(connection_, 2, 2).sequence);
    if (extensions_.render)
        xcb_discard_reply(connection_, xcb_render_query_version(connection_, 0, 11).sequence);
    if (!isPresent(connection_, &xcb_xkb_id))
        return;
    const auto xkb = wait(xcb_xkb_use_extension_reply,
                          xcb_xkb_use_extension(connection_, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION));
    extensions_.xkb = xkb && xkb->supported != 0;
    extensions_.xkbFirstEvent = xcb_get_extension_data(connection_, &xcb_xkb_id)->first_event;
}

void X11Connection::createHelperWindow()
{
    helperWindow_ = xcb_generate_id(connection_);
    constexpr std::uint32_t overrideRedirect = 1;
    const std::uint32_t values[] = {overrideRedirect, XCB_EVENT_MASK_PROPERTY_CHANGE};
    xcb_create_window(connection_, 0, helperWindow_, root_, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
}

void X11Connection::installNotifier()
{
    notifier_ =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, &context_,
                     [this] { dispatch(Source::socket); });
    // Whatever waits for a reply, and a flush too, may read events that the socket then no longer announces.
    if (auto* loop = QAbstractEventDispatcher::instance())
        QObject::connect(loop, &QAbstractEventDispatcher::aboutToBlock, &context_,
                         [this] { dispatch(Source::queue); });
}

void X11Connection::flush()
{
    if (alive_)
        xcb_flush(connection_);
}

Token X11Connection::observeEvents(std::function<void(const xcb_generic_event_t&)> handler)
{
    return listeners_.add(std::move(handler));
}

Token X11Connection::selectEvents(xcb_window_t window, std::uint32_t mask)
{
    if (!alive_ || window == noWindow)
        return {};
    const std::uint64_t id = nextId_++;
    selections_[window][id] = mask;
    applySelection(window);
    return Token([weak = std::weak_ptr(self_), id, window] {
        const auto self = weak.lock();
        if (!self)
            return;
        const auto found = (*self)->selections_.find(window);
        if (found == (*self)->selections_.end() || found->second.erase(id) == 0)
            return;
        (*self)->applySelection(window);
        if (found->second.empty())
            (*self)->selections_.erase(found);
    });
}

void X11Connection::applySelection(xcb_window_t window)
{
    if (!alive_)
        return;
    std::uint32_t mask = 0;
    for (const auto& [id, part] : selections_[window])
        mask |= part;
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &mask);
}

void X11Connection::awaitReply(unsigned int sequence, std::weak_ptr<const void> owner,
                               std::function<void(const void*)> handler)
{
    if (alive_)
        awaitedReplies_.push_back({sequence, std::move(owner), std::move(handler)});
}

void X11Connection::dispatch(Source source)
{
    if (dispatching_ || !alive_)
        return;
    dispatching_ = true;
    // Sending may read what has come meanwhile, so the loop ends only when nothing was left after the last
    // sending.
    do {
        flush();
    } while (deliverAll(source));
    dispatching_ = false;
    if (xcb_connection_has_error(connection_) != 0)
        lose();
}

bool X11Connection::deliverAll(Source source)
{
    bool hasDelivered = false;
    while (deliverNext(source))
        hasDelivered = true;
    return hasDelivered;
}

bool X11Connection::deliverNext(Source source)
{
    // Events are looked for before each reply: the handler of the last one may have read both, and what came
    // first is first.
    if (setAside_.empty()) {
        X11Reply<xcb_generic_event_t> event(source == Source::socket
                                                ? xcb_poll_for_event(connection_)
                                                : xcb_poll_for_queued_event(connection_));
        if (event)
            setAside_.push_back(std::move(event));
    }
    if (deliverReplyBefore(setAside_.empty() ? nullptr : setAside_.front().get()))
        return true;
    if (setAside_.empty())
        return false;
    const auto event = std::move(setAside_.front());
    setAside_.pop_front();
    deliver(*event);
    return true;
}

bool X11Connection::deliverReplyBefore(const xcb_generic_event_t* event)
{
    if (awaitedReplies_.empty())
        return false;
    const unsigned int sequence = awaitedReplies_.front().sequence;
    // Sequence numbers wrap around; the difference tells which one is the earlier.
    if (event != nullptr && static_cast<std::int32_t>(sequence - event->full_sequence) > 0)
        return false;
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (xcb_poll_for_reply(connection_, sequence, &reply, &error) == 0)
        return false;
    const X11Reply<void> ownedReply(reply);
    std::free(error);
    const AwaitedReply awaited = std::move(awaitedReplies_.front());
    awaitedReplies_.pop_front();
    if (!awaited.owner.expired())
        awaited.handler(ownedReply.get());
    return true;
}

void X11Connection::deliver(const xcb_generic_event_t& event)
{
    constexpr std::uint8_t errorKind = 0;
    if (event.response_type == errorKind)
        return; // Windows of others vanish at any time; whoever cares asks for a reply.
    follow(event);
    listeners_.tell(event);
}

void X11Connection::follow(const xcb_generic_event_t& event)
{
    if (eventKind(event) == XCB_DESTROY_NOTIFY) {
        // The window's number may be given to a new window, which starts without selections.
        const auto& destroyed = eventAs<xcb_destroy_notify_event_t>(event);
        if (destroyed.event == destroyed.window)
            selections_.erase(destroyed.window);
        return;
    }
    if (eventKind(event) != XCB_CONFIGURE_NOTIFY)
        return;
    const auto& configured = eventAs<xcb_configure_notify_event_t>(event);
    if (configured.window != root_)
        return;
    rootWidth_ = configured.width;
    rootHeight_ = configured.height;
}

std::optional<xcb_timestamp_t> X11Connection::currentServerTime()
{
    if (!alive_)
        return std::nullopt;
    // Appending nothing to a property reports the time of the change (ICCCM section 2.1).
    xcb_change_property(connection_, XCB_PROP_MODE_APPEND, helperWindow_, atoms_.timestampProbe,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    if (!wait(xcb_get_input_focus_reply, xcb_get_input_focus(connection_)))
        return std::nullopt;
    std::optional<xcb_timestamp_t> time;
    while (X11Reply<xcb_generic_event_t> event{xcb_poll_for_queued_event(connection_)}) {
        setAside_.push_back(std::move(event));
    }
    for (const auto& event : setAside_) {
        if (eventKind(*event) != XCB_PROPERTY_NOTIFY)
            continue;
        const auto& changed = eventAs<xcb_property_notify_event_t>(*event);
        if (changed.window == helperWindow_ && changed.atom == atoms_.timestampProbe)
            time = changed.time;
    }
    return time;
}

void X11Connection::lose()
{
    alive_ = false;
    notifier_->setEnabled(false); // Its signal may be the caller.
    setAside_.clear();
    selections_.clear();
    while (!awaitedReplies_.empty()) {
        const AwaitedReply awaited = std::move(awaitedReplies_.front());
        awaitedReplies_.pop_front();
        if (!awaited.owner.expired())
            awaited.handler(nullptr);
    }
}

} // namespace tessel
