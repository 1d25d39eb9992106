#include "FakeDisplay.h"

#include <algorithm>
#include <cstring>

namespace tessel {

SelectionAtoms fakeAtoms()
{
    SelectionAtoms atoms;
    AtomID next = 300;
    for (const SelectionAtoms::Name& entry : SelectionAtoms::names())
        atoms.*entry.member = next++;
    for (AtomID& slot : atoms.transferSlots)
        slot = next++;
    return atoms;
}

std::string atomBytes(const std::vector<AtomID>& atoms)
{
    return {reinterpret_cast<const char*>(atoms.data()), atoms.size() * sizeof(AtomID)};
}

std::vector<AtomID> atomsOf(const std::string& bytes)
{
    std::vector<AtomID> atoms(bytes.size() / sizeof(AtomID));
    if (!atoms.empty())
        std::memcpy(atoms.data(), bytes.data(), atoms.size() * sizeof(AtomID));
    return atoms;
}

FakeOwner ownerOf(const SelectionAtoms& atoms, std::map<AtomID, FakeTarget> targets)
{
    std::vector<AtomID> list = {atoms.targets};
    for (const auto& [target, value] : targets)
        list.push_back(target);
    targets[atoms.targets].value = {atoms.atom, 32, atomBytes(list)};
    return {std::move(targets), false};
}

FakeTarget utf8Target(const SelectionAtoms& atoms, std::string text)
{
    FakeTarget target;
    target.value = {atoms.utf8String, 8, std::move(text)};
    return target;
}

FakeDisplay::FakeDisplay() = default;

WindowID FakeDisplay::takeClipboard(FakeOwner owner)
{
    return takeClipboard(std::move(owner), ++time_);
}

WindowID FakeDisplay::takeClipboard(FakeOwner owner, ServerTime time)
{
    const WindowID window = createForeignWindow();
    owners_[window] = std::move(owner);
    setOwner(window, atoms.clipboard, time, OwnerChangeReason::ownerSet);
    return window;
}

void FakeDisplay::clearClipboard()
{
    setOwner(noWindow, atoms.clipboard, ++time_, OwnerChangeReason::ownerSet);
}

void FakeDisplay::killOwner()
{
    Selection& selection = selections_[atoms.clipboard];
    if (selection.owner == noWindow || selection.owner == ownWindow)
        return;
    owners_.erase(selection.owner);
    foreignWindows_.erase(selection.owner);
    std::erase_if(increments_, [&](const auto& entry) { return entry.second.owner == selection.owner; });
    // The server does not count a death as a change of the selection: its time stays.
    selection.owner = noWindow;
    ++time_;
    post([this, time = selection.time] {
        coordinator->ownerChanged({atoms.clipboard, noWindow, OwnerChangeReason::clientClosed, time}, now);
    });
}

void FakeDisplay::takeByStranger(AtomID selection)
{
    setOwner(createForeignWindow(), selection, ++time_, OwnerChangeReason::ownerSet);
}

void FakeDisplay::killStranger(AtomID selection)
{
    selections_[selection].owner = noWindow;
    ++time_;
    post([this, selection, time = selections_[selection].time] {
        coordinator->ownerChanged({selection, noWindow, OwnerChangeReason::windowDestroyed, time}, now);
    });
}

bool FakeDisplay::isOwnedByUs(AtomID selection) const
{
    return ownerOf(selection) == ownWindow;
}

WindowID FakeDisplay::ownerOf(AtomID selection) const
{
    const auto found = selections_.find(selection);
    return found == selections_.end() ? noWindow : found->second.owner;
}

WindowID FakeDisplay::createForeignWindow()
{
    foreignWindows_.insert(nextWindow_);
    return nextWindow_++;
}

void FakeDisplay::destroyForeignWindow(WindowID window)
{
    foreignWindows_.erase(window);
    std::erase_if(properties_, [&](const auto& entry) { return entry.first.first == window; });
    if (watched.erase(window) > 0)
        post([this, window] { coordinator->windowGone(window); });
}

bool FakeDisplay::request(WindowID requestor, AtomID selection, AtomID target, AtomID property,
                          std::optional<ServerTime> time)
{
    if (!isOwnedByUs(selection))
        return false;
    const SelectionRequest asked = {ownWindow, requestor, selection, target, property, time.value_or(time_)};
    post([this, asked] { coordinator->selectionRequested(asked, now); });
    return true;
}

std::optional<FakeProperty> FakeDisplay::takeProperty(WindowID window, AtomID property)
{
    const auto found = properties_.find({window, property});
    if (found == properties_.end())
        return std::nullopt;
    FakeProperty value = std::move(found->second);
    properties_.erase(found);
    propertyDeleted({window, property});
    return value;
}

const FakeProperty* FakeDisplay::property(WindowID window, AtomID property) const
{
    const auto found = properties_.find({window, property});
    return found == properties_.end() ? nullptr : &found->second;
}

void FakeDisplay::setProperty(WindowID window, AtomID property, FakeProperty value)
{
    put({window, property}, std::move(value));
}

bool FakeDisplay::deliverOne()
{
    if (events_.empty())
        return false;
    auto next = events_.begin();
    if (eventsOvertakeReplies) {
        const auto event = std::ranges::find(events_, false, &Event::isReply);
        next = event == events_.end() ? next : event;
    }
    const auto deliver = std::move(next->deliver);
    events_.erase(next);
    deliver();
    return true;
}

void FakeDisplay::deliverAll()
{
    while (deliverOne()) {
    }
}

void FakeDisplay::passTime(std::chrono::milliseconds time)
{
    now += time;
    time_ += static_cast<ServerTime>(time.count());
    coordinator->timePassed(now);
}

WindowID FakeDisplay::createRequestor()
{
    ++createdRequestors;
    requestors.insert(nextWindow_);
    return nextWindow_++;
}

void FakeDisplay::destroyRequestor(WindowID window)
{
    requestors.erase(window);
    std::erase_if(properties_, [&](const auto& entry) { return entry.first.first == window; });
    std::erase_if(increments_, [&](const auto& entry) { return entry.first.first == window; });
}

void FakeDisplay::convertSelection(const SelectionRequest& conversion)
{
    convertedTargets.push_back(conversion.target);
    const WindowID owner = ownerOf(conversion.selection);
    if (owner == noWindow || owner == ownWindow) {
        SelectionNotice refusal = {conversion.requestor, conversion.selection, conversion.target, noAtom,
                                   conversion.time};
        post([this, refusal] { coordinator->selectionNotified(refusal, now); });
        return;
    }
    // The owner answers later, if it still lives by then.
    post([this, owner, conversion] { answer(owner, conversion); });
}

void FakeDisplay::answer(WindowID ownerWindow, const SelectionRequest& conversion)
{
    const auto owner = owners_.find(ownerWindow);
    if (owner == owners_.end() || owner->second.isMute)
        return;
    writesToMissingWindows += windowExists(conversion.requestor) ? 0 : 1;
    SelectionNotice notice = {conversion.requestor, conversion.selection, conversion.target, noAtom,
                              conversion.time};
    const auto target = owner->second.targets.find(conversion.target);
    if (target != owner->second.targets.end() && windowExists(conversion.requestor)) {
        const Place place = {conversion.requestor, conversion.property};
        const FakeTarget& value = target->second;
        notice.property = conversion.property;
        if (value.incrementBytes) {
            const auto announced =
                value.announced.value_or(static_cast<std::uint32_t>(value.value.bytes.size()));
            increments_[place] = {ownerWindow, value};
            put(place, value.announcement.value_or(FakeProperty{atoms.incr, 32, atomBytes({announced})}));
        } else if (!value.isMissing) {
            put(place, value.value);
        }
    }
    if (requestors.contains(notice.requestor))
        post([this, notice] { coordinator->selectionNotified(notice, now); });
}

void FakeDisplay::put(Place place, FakeProperty value)
{
    if (!windowExists(place.first))
        return;
    properties_[place] = std::move(value);
    if (!requestors.contains(place.first))
        return;
    post([this, place] {
        coordinator->propertyChanged({place.first, place.second, PropertyChangeKind::newValue, time_}, now);
    });
}

void FakeDisplay::readProperty(WindowID window, AtomID property, std::size_t offset, std::size_t length,
                               AfterReading afterwards)
{
    ++readCount;
    FakeProperty piece = {noAtom, 0, {}};
    std::size_t bytesAfter = 0;
    const auto found = properties_.find({window, property});
    if (found != properties_.end()) {
        const std::string& bytes = found->second.bytes;
        piece = {found->second.type, found->second.format,
                 offset <= bytes.size() ? bytes.substr(offset, length) : ""};
        bytesAfter = bytes.size() - std::min(bytes.size(), offset + piece.bytes.size());
        bytesRead += piece.bytes.size();
    }
    // The answer is on its way before the owner learns that its property is gone.
    postReply([this, window, property, bytesAfter, piece = std::move(piece)] {
        coordinator->propertyArrived({window, property, piece.type, piece.format, bytesAfter,
                                      std::as_bytes(std::span(piece.bytes.data(), piece.bytes.size()))},
                                     now);
    });
    if (found == properties_.end() || bytesAfter > 0 || afterwards == AfterReading::keep)
        return;
    properties_.erase(found);
    propertyDeleted({window, property});
}

void FakeDisplay::propertyDeleted(Place place)
{
    if (increments_.contains(place))
        continueIncrements(place);
    if (!watched.contains(place.first))
        return;
    post([this, place] {
        coordinator->propertyChanged({place.first, place.second, PropertyChangeKind::deleted, time_}, now);
    });
}

void FakeDisplay::continueIncrements(Place place)
{
    Increments& increments = increments_[place];
    const FakeTarget& target = increments.target;
    if (increments.hasEnded || (target.silentAfter && increments.sent >= *target.silentAfter))
        return;
    const std::string& bytes = target.value.bytes;
    if (target.isEndless && increments.offset >= bytes.size())
        increments.offset = 0;
    const std::string piece = bytes.substr(increments.offset, *target.incrementBytes);
    increments.offset += piece.size();
    ++increments.sent;
    increments.hasEnded = piece.empty();
    put(place, {target.value.type, target.value.format, piece});
}

void FakeDisplay::requestTimestamp()
{
    post([this, time = ++time_] {
        coordinator->propertyChanged({ownWindow, atoms.ownTimestamp, PropertyChangeKind::newValue, time},
                                     now);
    });
}

void FakeDisplay::setSelectionOwner(WindowID owner, AtomID selection, ServerTime time)
{
    if (isBefore(time, selections_[selection].time) || isBefore(time_, time))
        return;
    setOwner(owner, selection, time, OwnerChangeReason::ownerSet);
}

void FakeDisplay::setOwner(WindowID owner, AtomID selection, ServerTime time, OwnerChangeReason reason)
{
    Selection& present = selections_[selection];
    if (present.owner == ownWindow && owner != ownWindow)
        post([this, selection, time] { coordinator->selectionCleared(selection, time); });
    present = {owner, time};
    const OwnerChange change = {selection, owner, reason, time_};
    if (selection == atoms.clipboard)
        post([this, change] { coordinator->ownerChanged(change, now); });
}

void FakeDisplay::changeProperty(WindowID window, AtomID property, AtomID type, int format,
                                 std::span<const std::byte> bytes)
{
    if (!windowExists(window)) {
        post([this, window] { coordinator->windowGone(window); }); // BadWindow.
        return;
    }
    put({window, property},
        {type, format, std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size())});
}

void FakeDisplay::notifyRequestor(const SelectionNotice& notice)
{
    notices.push_back(notice);
}

void FakeDisplay::watchRequestor(WindowID window)
{
    if (windowExists(window))
        watched.insert(window);
    else
        post([this, window] { coordinator->windowGone(window); }); // BadWindow.
}

void FakeDisplay::unwatchRequestor(WindowID window)
{
    watched.erase(window);
}

bool FakeDisplay::windowExists(WindowID window) const
{
    return window == ownWindow || requestors.contains(window) || foreignWindows_.contains(window);
}

} // namespace tessel
