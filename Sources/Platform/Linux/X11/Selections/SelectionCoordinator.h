#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "X11/Selections/SelectionAcquisition.h"
#include "X11/Selections/SelectionHandover.h"
#include "X11/Selections/SelectionReceiver.h"
#include "X11/Selections/SelectionServer.h"

namespace tessel {

/// Numbers the writes of this program, from 1; 0 stands for the time before the first.
using WriteGeneration = std::uint64_t;

/// Brings the receiver and the server together: which owner is received, when we take a selection over, and
/// which of our own writes a received value comes after. Takes every event of the wire. A state machine
/// without input or output of its own and without a clock.
class SelectionCoordinator {
public:
    /// The most applications that wait for their selection to be saved; they do so while they quit.
    static constexpr std::size_t mostSavers = 32;

    SelectionCoordinator(SelectionWire& wire, const SelectionAtoms& atoms);
    SelectionCoordinator(const SelectionCoordinator&) = delete;
    SelectionCoordinator& operator=(const SelectionCoordinator&) = delete;

    /// The value of a new owner, which took the selection after the write `generation` of ours. Once for each
    /// owner whose value was received or has failed. Must be set before the first event.
    std::function<void(WriteGeneration generation, ReceivedValue value)> onValue;
    /// What `onValue` brought last has been replaced or is about to be: nobody needs it prepared any more.
    std::function<void()> onSuperseded;
    /// See `SelectionReceiver`.
    std::function<SharedText(SharedText)> shareText;
    /// See `SelectionServer`.
    std::function<void(SelectionServer::SharedOffer offer, AtomID target)> onPictureWanted;

    /// Becomes the clipboard manager (freedesktop.org); call it where nobody else is. When somebody else is,
    /// and goes, we take the place without being called.
    void becomeClipboardManager();
    /// Receives what somebody owned before we came, in order to keep it when that owner goes. It is not
    /// reported.
    void keepPresentValue();
    /// Puts a value of our own on the clipboard. An empty value is a deliberate clear, and kept as emptiness.
    void write(WriteGeneration generation, SharedSelectionValue value, Moment now);
    /// Owns PRIMARY with `value` until the next write.
    void offerPrimary(SharedSelectionValue value);
    /// Runs `done` once the server has decided on everything written and offered so far; at once if it has.
    void whenAvailable(std::function<void()> done);
    /// Before we end: hands the clipboard's value on to the clipboard manager that somebody else is. Runs
    /// `done` when that is over, well or not; soon where the value is not ours or nobody takes it.
    void handOn(Moment now, std::function<void()> done);
    void setHandoverPatience(const HandoverPatience& patience) { handover_.setPatience(patience); }
    /// Nobody is going to answer any more: who waits for that waits no longer.
    void connectionLost();
    void pictureConverted(const SelectionServer::SharedOffer& offer, AtomID target, SharedBytes bytes,
                          Moment now);
    bool isPictureWanted(const SelectionServer::SharedOffer& offer, AtomID target) const;

    void ownerChanged(const OwnerChange& change, Moment now);
    void selectionNotified(const SelectionNotice& notice, Moment now);
    void selectionRequested(const SelectionRequest& request, Moment now);
    void selectionCleared(AtomID selection, ServerTime time);
    void propertyChanged(const PropertyChange& change, Moment now);
    void propertyArrived(const PropertySlice& slice, Moment now);
    /// A window of somebody else is gone.
    void windowGone(WindowID window);
    void timePassed(Moment now);
    std::optional<Moment> deadline() const;

private:
    void receiveNewOwner(const OwnerChange& change, Moment now);
    void receiveHeldOwner(Moment now);
    void clearedByOthers(Moment now);
    void takeOver(ServerTime time);
    void receivePresentOwner(ServerTime time, Moment now);
    void answerSavers(ServerTime time = currentTime);
    void beginHandover(ServerTime time, Moment now);
    bool ownsKeptValue(WindowID window) const;
    void releasePrimary();
    void answerWaiting();
    SharedSelectionValue valueToTake(AtomID selection) const;

    SelectionWire& wire_;
    const SelectionAtoms& atoms_;
    SelectionReceiver receiver_;
    SelectionServer server_;
    SelectionAcquisition acquisition_;
    SelectionHandover handover_;

    WriteGeneration generation_ = 0;
    SharedSelectionValue clipboardValue_; ///< To be offered when the clipboard is taken.
    SharedSelectionValue primaryValue_;
    /// The latest change of owner while our own taking is not decided.
    std::optional<OwnerChange> heldChange_;
    /// Whether the present owner is the one whose value the receiver has, so that it is kept when that owner
    /// goes.
    bool isKeeping_ = false;
    /// When the owner that is gone had taken the selection, while the last of its value is read.
    std::optional<ServerTime> takeOverTime_;
    /// The present owner; none where it was there before us.
    WindowID keptOwner_ = noWindow;
    bool isAskingForPresentValue_ = false;
    /// Whether the present owner was there before us: its value is nobody's news.
    bool isOwnerFromBefore_ = false;
    std::vector<SelectionRequest> savers_;
    std::vector<std::function<void()>> waitingForAvailability_;
    /// Whether a handover waits for the server's time.
    bool isHandoverDue_ = false;
};

} // namespace tessel
