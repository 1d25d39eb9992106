#include "SelectionOwner.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <utility>

#include <unistd.h>
#include <xcb/xfixes.h>

namespace tessel::owners {

namespace {

/// A property is sent whole up to this size, also by a good owner.
constexpr std::size_t mostWholeBytes = std::size_t{64} << 10;

/// How often it asks for a selection that it is not given.
constexpr int mostAttempts = 10;

std::string_view bytesOf(const std::vector<std::uint32_t>& items)
{
    return {reinterpret_cast<const char*>(items.data()), items.size() * sizeof(std::uint32_t)};
}

std::vector<std::string> inventedNames(std::size_t count)
{
    std::vector<std::string> names;
    for (std::size_t index = 0; index < count; ++index)
        names.push_back("application/x-selection-owners-" + std::to_string(index));
    return names;
}

} // namespace

SelectionOwner::SelectionOwner(Behaviour behaviour, std::string selection)
    : behaviour_(std::move(behaviour))
    , selection_(client_.atom(selection))
    , window_(client_.createWindow())
    , inventedTargets_(client_.atoms(inventedNames(behaviour_.inventedTargets)))
{
    if (!behaviour_.offers.empty())
        firstText_ = *behaviour_.offers.front().bytes;
}

bool SelectionOwner::takeSurely()
{
    take();
    // Asked in one breath, so that nobody comes between.
    const auto cookie = xcb_get_selection_owner(client_.connection(), selection_);
    const Received<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(client_.connection(), cookie, nullptr));
    return reply && reply->owner == window_;
}

void SelectionOwner::begin()
{
    // It is not given when somebody else has taken it after the time with which we ask (ICCCM section 2.1).
    while (!takeSurely()) {
        if (takings_ == mostAttempts)
            throw std::runtime_error("the selection was not given to us");
    }
    takings_ = 1;
    if (behaviour_.copiesOthers)
        watchOthers();
    if (behaviour_.takesAgainEvery)
        after(*behaviour_.takesAgainEvery, [this] { takeAgain(); });
    if (behaviour_.endsAfter)
        after(*behaviour_.endsAfter, [this] { isOver_ = true; });
}

void SelectionOwner::beginToGo()
{
    untakenValue_.reset();
    if (const auto delay = std::exchange(behaviour_.destroysWindowAfter, std::nullopt))
        after(*delay, [this] { client_.destroyWindow(window_); });
    if (const auto delay = std::exchange(behaviour_.clearsAfter, std::nullopt))
        after(*delay,
              [this] { xcb_set_selection_owner(client_.connection(), XCB_NONE, selection_, lastTaken_); });
}

void SelectionOwner::take()
{
    lastTaken_ = client_.currentTime();
    xcb_set_selection_owner(client_.connection(), window_, selection_, lastTaken_);
    if (!ownedSince_)
        ownedSince_ = lastTaken_;
    ++takings_;
}

void SelectionOwner::takeAgain()
{
    if (hasTakenAll())
        return;
    if (behaviour_.takesAgainAtMost && !behaviour_.offers.empty())
        behaviour_.offers.front().bytes =
            std::make_shared<const std::string>(firstText_ + " " + std::to_string(takings_ + 1));
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

std::optional<Clock::time_point> SelectionOwner::nextAction() const
{
    if (actions_.empty())
        return std::nullopt;
    return actions_.begin()->first;
}

void SelectionOwner::work()
{
    runDueActions();
    client_.flush(); // This may bring events in, too; hence before the look for them.
    while (const Event event = client_.nextEvent()) {
        handle(*event);
        client_.flush();
    }
}

void SelectionOwner::handle(const xcb_generic_event_t& event)
{
    if (copying_) {
        copying_->handle(event);
        adoptCopy();
    }
    const int kind = kindOf(event);
    if (kind == XCB_SELECTION_REQUEST)
        return handleRequest(reinterpret_cast<const Request&>(event));
    if (kind == XCB_SELECTION_CLEAR)
        return handleClear(reinterpret_cast<const xcb_selection_clear_event_t&>(event));
    if (kind == XCB_DESTROY_NOTIFY)
        return forgetWindow(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
    if (kind == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.state != XCB_PROPERTY_DELETE)
            return;
        if (untakenValue_ == Place{change.window, change.atom})
            beginToGo();
        continueIncrements({change.window, change.atom});
    } else if (kind == ownerChangeEvent_) {
        const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        handleOtherOwner(change.owner, change.selection_timestamp);
    }
}

void SelectionOwner::handleClear(const xcb_selection_clear_event_t& clear)
{
    if (isBefore(clear.time, lastTaken_))
        return; // It has been taken again since.
    ownedSince_.reset();
    if (behaviour_.takesBack)
        take();
}

void SelectionOwner::handleRequest(const Request& request)
{
    const bool asksForTargets = request.target == client_.atom("TARGETS");
    if (behaviour_.answers == Answers::none ||
        (behaviour_.answers == Answers::onlyTargets && !asksForTargets) ||
        (request.property == XCB_NONE && !behaviour_.servesObsoleteClients))
        return;
    if (behaviour_.death == Death::whenAsked && !asksForTargets)
        _exit(EXIT_SUCCESS);
    after(behaviour_.answerDelay, [this, request] { answer(request); });
}

void SelectionOwner::answer(const Request& asked)
{
    Request request = asked;
    if (request.property == XCB_NONE)
        request.property = request.target; // An obsolete client (ICCCM section 2.2).
    const bool isGranted = mayBeServed(asked) && writeTarget(request);
    sendAnswer(request, isGranted);
    if (behaviour_.answersTwice)
        sendAnswer(request, isGranted);
}

bool SelectionOwner::mayBeServed(const Request& request)
{
    if (request.property == XCB_NONE && request.target == client_.atom("MULTIPLE"))
        return false; // There is no list of what to convert (ICCCM section 2.6.2).
    const bool isFromBefore =
        request.time != XCB_CURRENT_TIME && ownedSince_ && isBefore(request.time, *ownedSince_);
    return !isFromBefore || !behaviour_.heedsTime;
}

void SelectionOwner::sendAnswer(const Request& request, bool isGranted)
{
    xcb_selection_notify_event_t notice = {};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.time = request.time;
    notice.property = isGranted ? request.property : static_cast<xcb_atom_t>(XCB_NONE);
    if (behaviour_.answerError == AnswerError::otherSelection)
        notice.selection = XCB_ATOM_SECONDARY;
    if (behaviour_.answerError == AnswerError::otherTarget)
        notice.target = XCB_ATOM_DRAWABLE;
    if (behaviour_.answerError == AnswerError::otherProperty && isGranted)
        notice.property = XCB_ATOM_CUT_BUFFER0;
    // Every event is 32 bytes on the wire.
    std::array<char, 32> event = {};
    std::memcpy(event.data(), &notice, sizeof notice);
    xcb_send_event(client_.connection(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, event.data());
}

bool SelectionOwner::writeTarget(const Request& request)
{
    if (request.target == client_.atom("TARGETS"))
        return writeTargets(request);
    if (request.target == client_.atom("TIMESTAMP"))
        return writeRequired(request, behaviour_.timestamp, XCB_ATOM_INTEGER, {lastTaken_});
    if (request.target == client_.atom("MULTIPLE"))
        return behaviour_.multiple != RequiredTarget::refused && writeMultiple(request);
    const Offer* offer = offerFor(request.target);
    return offer != nullptr && writeOffer(request, *offer);
}

bool SelectionOwner::writeTargets(const Request& request)
{
    std::vector<std::uint32_t> targets;
    for (const Offer& offer : behaviour_.offers)
        targets.push_back(client_.atom(offer.target));
    for (const std::string& promise : behaviour_.emptyPromises)
        targets.push_back(client_.atom(promise));
    targets.insert(targets.end(), inventedTargets_.begin(), inventedTargets_.end());
    for (const auto* required : {"TARGETS", "TIMESTAMP", "MULTIPLE"})
        targets.push_back(client_.atom(required));
    return writeRequired(request, behaviour_.targets, XCB_ATOM_ATOM, targets);
}

bool SelectionOwner::writeRequired(const Request& request, RequiredTarget manner, xcb_atom_t type,
                                   const std::vector<std::uint32_t>& items)
{
    if (manner == RequiredTarget::refused)
        return false;
    client_.writeProperty(request.requestor, request.property,
                          manner == RequiredTarget::wrongType ? client_.atom("SELECTION_OWNERS_TYPE") : type,
                          manner == RequiredTarget::wrongFormat ? 8 : 32, bytesOf(items));
    return true;
}

/// The property lists pairs of a target and a property; the targets that cannot be converted become None
/// (ICCCM section 2.6.2).
bool SelectionOwner::writeMultiple(const Request& request)
{
    auto pairs = client_.property(request.requestor, request.property).items();
    for (std::size_t index = 0; index + 1 < pairs.size(); index += 2) {
        Request part = request;
        part.target = pairs[index];
        part.property = pairs[index + 1];
        const bool isNested = part.target == client_.atom("MULTIPLE");
        if ((part.property == XCB_NONE || isNested || !writeTarget(part)) &&
            behaviour_.multipleRefusals == MultipleRefusals::marked)
            pairs[index] = XCB_NONE;
    }
    if (pairs.empty())
        return false;
    client_.writeProperty(request.requestor, request.property, client_.atom("ATOM_PAIR"), 32, bytesOf(pairs));
    return true;
}

bool SelectionOwner::writeOffer(const Request& request, const Offer& offer)
{
    const bool isLarge = offer.bytes->size() > mostWholeBytes && !behaviour_.sendsWhole;
    if (behaviour_.incrementBytes || isLarge) {
        beginIncrements(request, offer);
        return true;
    }
    if (behaviour_.destroysWindowAfter || behaviour_.clearsAfter) {
        watchWindow(request.requestor);
        untakenValue_ = {request.requestor, request.property};
    }
    client_.writeProperty(request.requestor, request.property, client_.atom(offer.type), offer.format,
                          *offer.bytes);
    return true;
}

const Offer* SelectionOwner::offerFor(xcb_atom_t target)
{
    const auto found = std::ranges::find_if(
        behaviour_.offers, [&](const Offer& offer) { return client_.atom(offer.target) == target; });
    return found == behaviour_.offers.end() ? nullptr : &*found;
}

void SelectionOwner::watchWindow(xcb_window_t window)
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(client_.connection(), window, XCB_CW_EVENT_MASK, &events);
}

void SelectionOwner::beginIncrements(const Request& request, const Offer& offer)
{
    watchWindow(request.requestor);
    std::vector<std::uint32_t> announcement;
    if (!behaviour_.announcesNothing)
        announcement.push_back(
            behaviour_.announcedBytes.value_or(static_cast<std::uint32_t>(offer.bytes->size())));
    client_.writeProperty(request.requestor, request.property, client_.atom("INCR"), 32,
                          bytesOf(announcement));
    increments_[{request.requestor, request.property}] = {offer};
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
    const std::string& bytes = *increments.offer.bytes;
    if (behaviour_.silentAfterIncrements && increments.sent >= *behaviour_.silentAfterIncrements)
        return;
    if (behaviour_.death == Death::amidIncrements && increments.offset * 2 >= bytes.size())
        _exit(EXIT_SUCCESS);
    if (behaviour_.death == Death::beforeLastPiece && increments.offset >= bytes.size())
        _exit(EXIT_SUCCESS);
    if (behaviour_.isEndless && increments.offset >= bytes.size())
        increments.offset = 0;
    if (increments.isComplete) // Only one that writes after the end comes here.
        increments.offset = 0;
    const std::size_t pieceBytes =
        std::min(behaviour_.incrementBytes.value_or(mostWholeBytes), client_.mostBytesInRequest());
    const std::size_t length = std::min(pieceBytes, bytes.size() - increments.offset);
    client_.writeProperty(place.first, place.second, client_.atom(increments.offer.type),
                          increments.offer.format, std::string_view(bytes).substr(increments.offset, length));
    client_.flush();
    increments.offset += length;
    ++increments.sent;
    if (increments.isComplete || (length == 0 && !behaviour_.writesAfterEnd))
        increments_.erase(found);
    else if (length == 0)
        increments.isComplete = true;
}

void SelectionOwner::forgetWindow(xcb_window_t window)
{
    std::erase_if(increments_, [&](const auto& entry) { return entry.first.first == window; });
}

void SelectionOwner::watchOthers()
{
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(client_.connection(), &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0)
        throw std::runtime_error("the X server has no XFIXES extension");
    // The server answers no other request of the extension before this one.
    const auto cookie = xcb_xfixes_query_version(client_.connection(), 5, 0);
    const Received<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(client_.connection(), cookie, nullptr));
    xcb_xfixes_select_selection_input(client_.connection(), window_, selection_,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    client_.roundTrip();
    ownerChangeEvent_ = extension->first_event + XCB_XFIXES_SELECTION_NOTIFY;
}

void SelectionOwner::handleOtherOwner(xcb_window_t owner, xcb_timestamp_t time)
{
    if (owner == window_ || owner == XCB_NONE)
        return;
    copying_.emplace(client_,
                     Transfer::Request{client_.createWindow(), selection_, client_.atom("UTF8_STRING"),
                                       client_.atom("SELECTION_OWNERS_COPY"), time});
    copying_->ask();
}

void SelectionOwner::adoptCopy()
{
    if (!copying_->isOver())
        return;
    if (copying_->state() == Transfer::State::delivered) {
        behaviour_.offers = {offer("UTF8_STRING", copying_->value().bytes)};
        take();
    }
    copying_.reset();
}

} // namespace tessel::owners
