#include "X11/Selections/SelectionAcquisition.h"

#include <algorithm>

namespace tessel {

void SelectionAcquisition::acquireAt(AtomID selection, ServerTime time)
{
    take(selection, time);
}

bool SelectionAcquisition::isUnderWay(AtomID selection) const
{
    return std::ranges::any_of(errands_, [&](const Errand& errand) { return errand.selection == selection; });
}

void SelectionAcquisition::timestampArrived(ServerTime time, Moment now)
{
    if (errands_.empty())
        return;
    const Errand errand = errands_.front();
    errands_.pop_front();
    if (errand.step == Step::take)
        take(errand.selection, time);
    if (errand.step == Step::tellTime)
        onTime(time, now);
}

void SelectionAcquisition::enqueue(AtomID selection, Step step)
{
    errands_.push_back({selection, step});
    wire_.requestTimestamp();
}

void SelectionAcquisition::take(AtomID selection, ServerTime time)
{
    wire_.setSelectionOwner(wire_.ownerWindow(), selection, time);
    onTaken(selection, time);
    enqueue(selection, Step::awaitDecision);
}

} // namespace tessel
