#include "X11/Selections/SelectionCoordinator.h"

#include <algorithm>

namespace tessel {

SelectionCoordinator::SelectionCoordinator(SelectionWire& wire, const SelectionAtoms& atoms)
    : wire_(wire)
    , atoms_(atoms)
    , receiver_(wire, atoms, atoms.clipboard)
    , server_(wire, atoms)
    , acquisition_(wire)
    , handover_(wire, atoms)
{
    receiver_.onValue = [this](ReceivedValue value) {
        if (!isOwnerFromBefore_)
            onValue(generation_, std::move(value));
    };
    receiver_.shareText = [this](SharedText text) { return shareText ? shareText(std::move(text)) : text; };
    receiver_.onIdle = [this] {
        if (!savers_.empty())
            acquisition_.askTime();
        if (const auto time = std::exchange(takeOverTime_, std::nullopt))
            takeOver(*time);
    };
    server_.onPictureWanted = [this](SelectionServer::SharedOffer offer, AtomID target) {
        onPictureWanted(std::move(offer), target);
    };
    server_.onSaveTargets = [this](const SelectionRequest& request) {
        if (savers_.size() >= mostSavers)
            return server_.answerSaveTargets(request);
        savers_.push_back(request);
        if (receiver_.isIdle())
            acquisition_.askTime();
    };
    acquisition_.onTime = [this](ServerTime time, Moment now) {
        if (std::exchange(isAskingForPresentValue_, false))
            receivePresentOwner(time, now);
        if (receiver_.isIdle())
            answerSavers(time);
        if (std::exchange(isHandoverDue_, false))
            beginHandover(time, now);
    };
    acquisition_.onTaken = [this](AtomID selection, ServerTime time) {
        server_.offer(selection, valueToTake(selection), time);
        if (selection == atoms_.clipboardManager)
            wire_.announceManager(selection, time);
    };
}

void SelectionCoordinator::becomeClipboardManager()
{
    acquisition_.acquire(atoms_.clipboardManager);
}

void SelectionCoordinator::keepPresentValue()
{
    isAskingForPresentValue_ = true;
    acquisition_.askTime();
}

void SelectionCoordinator::receivePresentOwner(ServerTime time, Moment now)
{
    const bool hasChangedSince = isKeeping_ || heldChange_ || generation_ > 0;
    if (hasChangedSince)
        return;
    isOwnerFromBefore_ = true;
    isKeeping_ = true;
    receiver_.receive(time, now);
}

void SelectionCoordinator::write(WriteGeneration generation, SharedSelectionValue value, Moment now)
{
    generation_ = generation;
    isOwnerFromBefore_ = false;
    clipboardValue_ = std::move(value);
    isKeeping_ = false;
    takeOverTime_.reset();
    heldChange_.reset();
    receiver_.abandon(now);
    onSuperseded();
    answerSavers();
    releasePrimary();
    acquisition_.acquire(atoms_.clipboard);
}

void SelectionCoordinator::offerPrimary(SharedSelectionValue value)
{
    primaryValue_ = std::move(value);
    acquisition_.acquire(atoms_.primary);
}

void SelectionCoordinator::whenAvailable(std::function<void()> done)
{
    waitingForAvailability_.push_back(std::move(done));
    answerWaiting();
}

void SelectionCoordinator::handOn(Moment now, std::function<void()> done)
{
    handover_.prepare(now, std::move(done));
    // What was written last is on its way to the clipboard perhaps.
    whenAvailable([this] {
        const bool isManagerOurs = server_.offered(atoms_.clipboardManager) != nullptr;
        if (isManagerOurs || !server_.offered(atoms_.clipboard))
            return handover_.finish();
        isHandoverDue_ = true;
        acquisition_.askTime();
    });
}

void SelectionCoordinator::connectionLost()
{
    handover_.finish();
    for (const auto& done : std::exchange(waitingForAvailability_, {}))
        done();
}

void SelectionCoordinator::beginHandover(ServerTime time, Moment now)
{
    if (!handover_.isUnderWay())
        return; // The server's time has come too late.
    const auto offer = server_.offered(atoms_.clipboard);
    if (!offer || offer->value->isEmpty())
        return handover_.finish();
    handover_.begin(server_.targetsToHandOn(*offer->value), time, now);
}

void SelectionCoordinator::answerWaiting()
{
    if (acquisition_.isUnderWay(atoms_.clipboard) || acquisition_.isUnderWay(atoms_.primary))
        return;
    for (const auto& done : std::exchange(waitingForAvailability_, {}))
        done();
}

void SelectionCoordinator::releasePrimary()
{
    primaryValue_.reset();
    const auto offer = server_.offered(atoms_.primary);
    if (!offer)
        return;
    server_.withdraw(atoms_.primary);
    // With the time of our ownership, so that whoever took it since keeps it.
    wire_.setSelectionOwner(noWindow, atoms_.primary, offer->time);
}

SharedSelectionValue SelectionCoordinator::valueToTake(AtomID selection) const
{
    static const auto nothing = std::make_shared<const SelectionValue>();
    if (selection == atoms_.clipboard && clipboardValue_)
        return clipboardValue_;
    if (selection == atoms_.primary && primaryValue_)
        return primaryValue_;
    return nothing;
}

void SelectionCoordinator::pictureConverted(const SelectionServer::SharedOffer& offer, AtomID target,
                                            SharedBytes bytes, Moment now)
{
    server_.pictureConverted(offer, target, std::move(bytes), now);
    handover_.progress(now);
}

bool SelectionCoordinator::isPictureWanted(const SelectionServer::SharedOffer& offer, AtomID target) const
{
    return server_.isWanted(offer, target);
}

void SelectionCoordinator::ownerChanged(const OwnerChange& change, Moment now)
{
    if (change.selection == atoms_.clipboardManager && change.owner == noWindow)
        return becomeClipboardManager(); // The other one has gone.
    if (change.selection != atoms_.clipboard)
        return;
    if (change.owner == wire_.ownerWindow()) {
        // Our own taking: whatever came before it is history.
        heldChange_.reset();
        return;
    }
    if (acquisition_.isUnderWay(atoms_.clipboard)) {
        // Whether this owner comes before or after our own write is not known yet.
        heldChange_ = change;
        return;
    }
    receiveNewOwner(change, now);
}

void SelectionCoordinator::receiveNewOwner(const OwnerChange& change, Moment now)
{
    takeOverTime_.reset();
    if (change.owner != noWindow) {
        isOwnerFromBefore_ = false;
        server_.withdraw(atoms_.clipboard);
        clipboardValue_.reset();
        onSuperseded();
        isKeeping_ = true;
        keptOwner_ = change.owner;
        receiver_.receive(change.time, now);
        return;
    }
    if (change.reason == OwnerChangeReason::ownerSet)
        return clearedByOthers(now);
    receiver_.ownerGone();
    if (!isKeeping_)
        return;
    // Earlier we would be asked ourselves for what is still to come.
    if (receiver_.isIdle())
        return takeOver(change.time);
    takeOverTime_ = change.time;
}

/// Somebody gave the selection up on purpose: there is nothing any more, and nothing is to be brought back.
void SelectionCoordinator::clearedByOthers(Moment now)
{
    server_.withdraw(atoms_.clipboard);
    clipboardValue_.reset();
    isKeeping_ = false;
    receiver_.abandon(now);
    onSuperseded();
    answerSavers();
    onValue(generation_, {Readability::readable, {}});
}

/// The owner is gone, or about to go. Its value stays available, with everything that it had offered beside
/// it. Whoever has taken the selection after `time` keeps it.
void SelectionCoordinator::takeOver(ServerTime time)
{
    isKeeping_ = false;
    if (receiver_.kept().isEmpty())
        return;
    clipboardValue_ = std::make_shared<const SelectionValue>(receiver_.kept());
    acquisition_.acquireAt(atoms_.clipboard, time);
}

void SelectionCoordinator::selectionNotified(const SelectionNotice& notice, Moment now)
{
    handover_.selectionNotified(notice);
    receiver_.selectionNotified(notice, now);
}

void SelectionCoordinator::selectionRequested(const SelectionRequest& request, Moment now)
{
    server_.selectionRequested(request, now);
    handover_.progress(now);
}

void SelectionCoordinator::selectionCleared(AtomID selection, ServerTime time)
{
    // The loss of an ownership before the present one says nothing about this one.
    const auto offer = server_.offered(selection);
    if (!offer || isBefore(time, offer->time))
        return;
    server_.selectionCleared(selection);
}

void SelectionCoordinator::propertyChanged(const PropertyChange& change, Moment now)
{
    if (change.window != wire_.ownerWindow()) {
        receiver_.propertyChanged(change, now);
        server_.propertyChanged(change, now);
        handover_.progress(now);
        return;
    }
    if (change.property != atoms_.ownTimestamp || change.kind != PropertyChangeKind::newValue)
        return;
    acquisition_.timestampArrived(change.time, now);
    answerWaiting();
    // Somebody took the selection right after us, or our taking was ignored.
    if (heldChange_ && !acquisition_.isUnderWay(atoms_.clipboard))
        receiveHeldOwner(now);
}

void SelectionCoordinator::receiveHeldOwner(Moment now)
{
    const OwnerChange held = *heldChange_;
    heldChange_.reset();
    const bool hasComeAndGone = held.owner == noWindow && held.reason != OwnerChangeReason::ownerSet;
    if (!hasComeAndGone)
        return receiveNewOwner(held, now);
    // It took the selection from us and died before it could be asked.
    server_.withdraw(atoms_.clipboard);
    clipboardValue_.reset();
    onValue(generation_, {Readability::unreadable, {}});
}

void SelectionCoordinator::propertyArrived(const PropertySlice& slice, Moment now)
{
    receiver_.propertyArrived(slice, now);
    server_.propertyArrived(slice, now);
}

void SelectionCoordinator::windowGone(WindowID window)
{
    server_.requestorGone(window);
}

void SelectionCoordinator::timePassed(Moment now)
{
    receiver_.timePassed(now);
    server_.timePassed(now);
    handover_.timePassed(now);
}

std::optional<Moment> SelectionCoordinator::deadline() const
{
    std::optional<Moment> first;
    for (const auto& each : {receiver_.deadline(), server_.deadline(), handover_.deadline()}) {
        if (each && (!first || *each < *first))
            first = each;
    }
    return first;
}

/// The selection is ours before its owner hears that its value is saved: on its way out an owner may give up
/// what it owned, with the time of the event that made it quit. That would be a clear; after a taking with
/// the server's present `time` it has no effect.
void SelectionCoordinator::answerSavers(ServerTime time)
{
    for (const SelectionRequest& saver : std::exchange(savers_, {})) {
        if (isKeeping_ && ownsKeptValue(saver.requestor))
            takeOver(time);
        server_.answerSaveTargets(saver);
    }
}

bool SelectionCoordinator::ownsKeptValue(WindowID window) const
{
    return isOwnerFromBefore_ || window == keptOwner_;
}

} // namespace tessel
