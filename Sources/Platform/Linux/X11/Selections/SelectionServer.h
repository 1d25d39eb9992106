#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "X11/Selections/OutgoingTransfer.h"
#include "X11/Selections/SelectionAtoms.h"
#include "X11/Selections/SelectionValue.h"
#include "X11/Selections/SelectionWire.h"

namespace tessel {

/// Answers those who ask for the selections that we own (ICCCM sections 2.2, 2.6.2 and 2.7.2), any number at
/// the same time. A state machine without input or output of its own and without a clock.
class SelectionServer {
public:
    /// The most requestors that are served at the same time, and the most that wait for a conversion; further
    /// ones are refused. A paste has one requestor, and a curious clipboard manager a handful.
    static constexpr std::size_t mostTransfers = 256;
    /// The most pairs of one MULTIPLE request. A request names each target once.
    static constexpr std::size_t mostMultiplePairs = 128;

    /// What is offered in one selection, and since when.
    struct Offer {
        SharedSelectionValue value;
        ServerTime time = currentTime;
    };
    using SharedOffer = std::shared_ptr<const Offer>;

    SelectionServer(SelectionWire& wire, const SelectionAtoms& atoms);
    SelectionServer(const SelectionServer&) = delete;
    SelectionServer& operator=(const SelectionServer&) = delete;

    /// A picture of `offer` is wanted in the form of the picture target. Answer it with `pictureConverted`.
    /// Must be set before the first event.
    std::function<void(SharedOffer offer, AtomID target)> onPictureWanted;
    /// An application wants its selection to outlive it. Answer it with `answerSaveTargets`.
    std::function<void(const SelectionRequest& request)> onSaveTargets;

    /// From now on `selection` is served with `value`; we own it since `time`.
    void offer(AtomID selection, SharedSelectionValue value, ServerTime time);
    /// No further requests are served; those under way are.
    void withdraw(AtomID selection);
    /// None: we do not offer it.
    SharedOffer offered(AtomID selection) const;

    void selectionRequested(const SelectionRequest& request, Moment now);
    void selectionCleared(AtomID selection);
    void propertyChanged(const PropertyChange& change, Moment now);
    void propertyArrived(const PropertySlice& slice, Moment now);
    void requestorGone(WindowID window);
    void timePassed(Moment now);
    std::optional<Moment> deadline() const;

    /// `bytes` null: the picture cannot be converted.
    void pictureConverted(const SharedOffer& offer, AtomID target, SharedBytes bytes, Moment now);
    void answerSaveTargets(const SelectionRequest& request);

    /// The targets in which a clipboard manager is to save `value`: each form that cannot be made of another,
    /// and those that everybody reads.
    std::vector<AtomID> targetsToHandOn(const SelectionValue& value) const;

    /// Whether somebody still waits for that conversion.
    bool isWanted(const SharedOffer& offer, AtomID target) const;

private:
    struct Pair {
        AtomID target = noAtom;
        AtomID property = noAtom;
    };
    /// A request with everything that it wants: one pair, or those of a MULTIPLE.
    struct Job {
        SelectionRequest request;
        SharedOffer offer;
        std::vector<Pair> pairs;
        std::map<AtomID, SharedBytes> converted; ///< Null bytes: it failed.
        AtomID waitingFor = noAtom;
    };
    enum class ReplyKind { refused, ready, convertFirst };
    struct Reply {
        ReplyKind kind = ReplyKind::refused;
        AtomID type = noAtom;
        int format = 8;
        SharedBytes bytes = nullptr;
        OutgoingTransfer::Rewriting rewriting = OutgoingTransfer::Rewriting::none;
    };

    void run(Job job, Moment now);
    void complete(Job job, const std::vector<Reply>& replies, Moment now);
    bool write(WindowID requestor, AtomID property, const Reply& reply, Moment now);
    void notify(const SelectionRequest& request, AtomID property);
    void readPairs(const SelectionRequest& request, SharedOffer offer);
    Reply reply(const Job& job, AtomID target) const;
    Reply textReply(const Offer& offer, AtomID target) const;
    Reply pictureReply(const Job& job, AtomID target) const;
    Reply targetsReply(const Job& job) const;
    std::vector<AtomID> targetsOf(const SelectionValue& value) const;
    bool isTextTarget(AtomID target) const;
    void endTransfer(std::size_t index);
    std::size_t incrementThreshold() const;

    SelectionWire& wire_;
    const SelectionAtoms& atoms_;
    std::map<AtomID, SharedOffer> offers_;
    std::vector<OutgoingTransfer> transfers_;
    std::vector<Job> waiting_; ///< For the conversion of a picture.
    std::vector<std::pair<SelectionRequest, SharedOffer>>
        unreadPairs_; ///< MULTIPLE requests whose pairs are being read.
};

} // namespace tessel
