#pragma once

#include <deque>
#include <functional>

#include "X11/Selections/SelectionAtoms.h"
#include "X11/Selections/SelectionWire.h"

namespace tessel {

/// Takes selections over with the server's own time (ICCCM section 2.1): a zero-length append brings the
/// time, the selection is set with it, and a second append tells when that has been done, because the server
/// answers in order. A state machine without input or output of its own.
class SelectionAcquisition {
public:
    explicit SelectionAcquisition(SelectionWire& wire)
        : wire_(wire)
    {}

    /// The server has been asked with this time; from now on requests can come. Must be set before the first
    /// event.
    std::function<void(AtomID selection, ServerTime time)> onTaken;

    /// The time asked for by `askTime` has come.
    std::function<void(ServerTime time, Moment now)> onTime;

    /// Asks for the server's time, for a conversion without an event to take the time from.
    void askTime() { enqueue(noAtom, Step::tellTime); }
    /// Takes `selection`. When that is under way already, it is taken once more, later.
    void acquire(AtomID selection) { enqueue(selection, Step::take); }
    /// Takes `selection` with the time of the event that is the reason for it. Whoever took it after that
    /// keeps it.
    void acquireAt(AtomID selection, ServerTime time);
    /// Whether it is not known yet who owns `selection`: the server has not come to our last taking of it,
    /// which it ignores when somebody else has taken the selection at a later time.
    bool isUnderWay(AtomID selection) const;
    /// The time that was asked for has come.
    void timestampArrived(ServerTime time, Moment now);

private:
    enum class Step { take, awaitDecision, tellTime };
    struct Errand {
        AtomID selection;
        Step step;
    };

    void enqueue(AtomID selection, Step step);
    void take(AtomID selection, ServerTime time);

    SelectionWire& wire_;
    std::deque<Errand> errands_; ///< In the order of the timestamps that were asked for.
};

} // namespace tessel
