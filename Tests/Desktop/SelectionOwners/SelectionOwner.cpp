#include "SelectionOwner.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include <poll.h>
#include <unistd.h>

namespace tessel::owners {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Value>
using Received = std::unique_ptr<Value, Free>;

/// A property is sent whole up to this size, also by a good owner.
constexpr std::size_t mostWholeBytes = std::size_t{64} << 10;

} // namespace

SelectionOwner::SelectionOwner(Behaviour behaviour)
    : behaviour_(std::move(behaviour))
    , connection_(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(connection_.get()) != 0)
        throw std::runtime_error("cannot connect to the X display");
    if (!behaviour_.offers.empty())
        firstText_ = behaviour_.offers.front().bytes;
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
    window_ = xcb_generate_id(connection_.get());
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_.get(), 0, window_, screen->root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
}

SelectionOwner::~SelectionOwner() = default;

xcb_atom_t SelectionOwner::intern(const std::string& name)
{
    const auto known = atoms_.find(name);
    if (known != atoms_.end())
        return known->second;
    const auto cookie =
        xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Received<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_.get(), cookie, nullptr));
    return atoms_[name] = reply ? reply->atom : XCB_NONE;
}

/// The time comes with the notification of an append of nothing (ICCCM section 2.1).
xcb_timestamp_t SelectionOwner::currentServerTime()
{
    xcb_change_property(connection_.get(), XCB_PROP_MODE_APPEND, window_, intern("SELECTION_OWNERS_TIME"),
                        XCB_ATOM_INTEGER, 32, 0, nullptr);
    xcb_flush(connection_.get());
    while (xcb_generic_event_t* event = xcb_wait_for_event(connection_.get())) {
        const auto& change = *reinterpret_cast<xcb_property_notify_event_t*>(event);
        if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY && change.window == window_) {
            const xcb_timestamp_t time = change.time;
            std::free(event);
            return time;
        }
        deferred_.emplace_back(event, &std::free);
    }
    throw std::runtime_error("the connection to the X display is broken");
}

void SelectionOwner::take()
{
    xcb_set_selection_owner(connection_.get(), window_, intern("CLIPBOARD"), currentServerTime());
    xcb_flush(connection_.get());
    ++takings_;
}

void SelectionOwner::takeAgain()
{
    if (behaviour_.takesAgainAtMost && takings_ > *behaviour_.takesAgainAtMost)
        return;
    if (behaviour_.takesAgainAtMost && !behaviour_.offers.empty())
        behaviour_.offers.front().bytes = firstText_ + " " + std::to_string(takings_ + 1);
    take();
    after(*behaviour_.takesAgainEvery, [this] { takeAgain(); });
}

void SelectionOwner::after(std::chrono::milliseconds delay, std::function<void()> action)
{
    if (delay.count() == 0)
        return action();
    actions_.emplace(Clock::now() + delay, std::move(action));
}

void SelectionOwner::runDueActions()
{
    while (!actions_.empty() && actions_.begin()->first <= Clock::now()) {
        const auto action = std::move(actions_.begin()->second);
        actions_.erase(actions_.begin());
        action();
    }
}

int SelectionOwner::millisecondsUntilNext(std::optional<Clock::time_point> end) const
{
    if (!actions_.empty())
        end = std::min(end.value_or(Clock::time_point::max()), actions_.begin()->first);
    if (!end)
        return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*end - Clock::now()).count();
    return static_cast<int>(std::max<std::chrono::milliseconds::rep>(left, 0));
}

void SelectionOwner::run(std::optional<Clock::time_point> end, int stopDescriptor,
                         const std::function<void()>& onOwned)
{
    take();
    const auto cookie = xcb_get_selection_owner(connection_.get(), intern("CLIPBOARD"));
    const Received<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection_.get(), cookie, nullptr));
    if (!owner || owner->owner != window_)
        throw std::runtime_error("the selection was not given to us");
    onOwned();
    if (behaviour_.takesAgainEvery)
        after(*behaviour_.takesAgainEvery, [this] { takeAgain(); });
    if (behaviour_.clearsAfter)
        after(*behaviour_.clearsAfter, [this] {
            xcb_set_selection_owner(connection_.get(), XCB_NONE, intern("CLIPBOARD"), currentServerTime());
        });
    while (!end || Clock::now() < *end) {
        runDueActions();
        while (!deferred_.empty()) {
            const auto event = std::move(deferred_.front());
            deferred_.erase(deferred_.begin());
            handle(*event);
        }
        while (const Received<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())})
            handle(*event);
        xcb_flush(connection_.get());
        if (xcb_connection_has_error(connection_.get()) != 0)
            return;
        pollfd sources[] = {{xcb_get_file_descriptor(connection_.get()), POLLIN, 0},
                            {stopDescriptor, POLLIN, 0}};
        poll(sources, std::size(sources), deferred_.empty() ? millisecondsUntilNext(end) : 0);
        if (sources[1].revents != 0)
            return;
    }
}

void SelectionOwner::handle(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7F) {
    case XCB_SELECTION_REQUEST:
        return handleRequest(reinterpret_cast<const xcb_selection_request_event_t&>(event));
    case XCB_SELECTION_CLEAR:
        return behaviour_.takesBack ? take() : void();
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.state == XCB_PROPERTY_DELETE)
            continueIncrements({change.window, change.atom});
        return;
    }
    default:
        return;
    }
}

void SelectionOwner::handleRequest(const xcb_selection_request_event_t& request)
{
    const bool asksForTargets = request.target == intern("TARGETS");
    if (behaviour_.answers == Answers::none ||
        (behaviour_.answers == Answers::onlyTargets && !asksForTargets))
        return;
    if (behaviour_.death == Death::whenAsked && !asksForTargets)
        _exit(EXIT_SUCCESS);
    after(behaviour_.answerDelay, [this, request] { answer(request); });
}

void SelectionOwner::answer(const xcb_selection_request_event_t& asked)
{
    xcb_selection_request_event_t request = asked;
    if (request.property == XCB_NONE)
        request.property = request.target; // An obsolete client (ICCCM section 2.2).
    xcb_selection_notify_event_t notice = {};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.time = request.time;
    notice.property = writeTarget(request) ? request.property : static_cast<xcb_atom_t>(XCB_NONE);
    // Every event is 32 bytes on the wire.
    std::array<char, 32> event = {};
    std::memcpy(event.data(), &notice, sizeof notice);
    xcb_send_event(connection_.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, event.data());
    xcb_flush(connection_.get());
}

bool SelectionOwner::writeTarget(const xcb_selection_request_event_t& request)
{
    if (const Offer* offer = offerFor(request.target))
        return !offer->type.empty() && writeOffer(request, *offer);
    return request.target == intern("TARGETS") && writeTargets(request);
}

bool SelectionOwner::writeTargets(const xcb_selection_request_event_t& request)
{
    std::vector<xcb_atom_t> targets;
    for (const Offer& offer : behaviour_.offers)
        targets.push_back(intern(offer.target));
    for (const std::string& promise : behaviour_.emptyPromises)
        targets.push_back(intern(promise));
    targets.push_back(intern("TARGETS"));
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                        XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(targets.size()), targets.data());
    return true;
}

bool SelectionOwner::writeOffer(const xcb_selection_request_event_t& request, const Offer& offer)
{
    const bool goesInIncrements = behaviour_.incrementBytes || offer.bytes.size() > mostWholeBytes;
    if (!goesInIncrements) {
        const std::size_t items = offer.bytes.size() / static_cast<std::size_t>(offer.format / 8);
        xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                            intern(offer.type), static_cast<std::uint8_t>(offer.format),
                            static_cast<std::uint32_t>(items), offer.bytes.data());
        return true;
    }
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_.get(), request.requestor, XCB_CW_EVENT_MASK, &events);
    const auto size = behaviour_.announcedBytes.value_or(static_cast<std::uint32_t>(offer.bytes.size()));
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                        intern("INCR"), 32, 1, &size);
    increments_[{request.requestor, request.property}] = {&offer};
    return true;
}

void SelectionOwner::continueIncrements(Place place)
{
    if (increments_.contains(place))
        after(behaviour_.incrementDelay, [this, place] { sendIncrement(place); });
}

void SelectionOwner::sendIncrement(Place place)
{
    const auto found = increments_.find(place);
    if (found == increments_.end())
        return;
    Increments& increments = found->second;
    const std::string& bytes = increments.offer->bytes;
    if (behaviour_.silentAfterIncrements && increments.sent >= *behaviour_.silentAfterIncrements)
        return;
    if (behaviour_.death == Death::amidIncrements && increments.offset * 2 >= bytes.size())
        _exit(EXIT_SUCCESS);
    if (behaviour_.death == Death::beforeLastPiece && increments.offset >= bytes.size())
        _exit(EXIT_SUCCESS);
    if (behaviour_.isEndless && increments.offset >= bytes.size())
        increments.offset = 0;
    const std::size_t pieceBytes = behaviour_.incrementBytes.value_or(mostWholeBytes);
    const std::size_t length = std::min(pieceBytes, bytes.size() - increments.offset);
    xcb_change_property(
        connection_.get(), XCB_PROP_MODE_REPLACE, place.first, place.second, intern(increments.offer->type),
        static_cast<std::uint8_t>(increments.offer->format),
        static_cast<std::uint32_t>(length * 8 / static_cast<std::size_t>(increments.offer->format)),
        bytes.data() + increments.offset);
    xcb_flush(connection_.get());
    increments.offset += length;
    ++increments.sent;
    if (length == 0)
        increments_.erase(found);
}

const Offer* SelectionOwner::offerFor(xcb_atom_t target)
{
    for (const Offer& offer : behaviour_.offers) {
        if (intern(offer.target) == target)
            return &offer;
    }
    return nullptr;
}

} // namespace tessel::owners
