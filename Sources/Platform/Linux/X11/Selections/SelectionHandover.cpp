#include "X11/Selections/SelectionHandover.h"

#include <algorithm>
#include <utility>

namespace tessel {

void SelectionHandover::prepare(Moment now, std::function<void()> done)
{
    done_ = std::move(done);
    silenceEnds_.reset();
    wholeEnds_ = now + patience_.whole;
}

void SelectionHandover::begin(const std::vector<AtomID>& targets, ServerTime time, Moment now)
{
    silenceEnds_ = now + patience_.silence;
    const AtomID property = atoms_.saveTargets;
    wire_.changeProperty(wire_.ownerWindow(), property, atoms_.atom, 32, std::as_bytes(std::span(targets)));
    // From the window that owns the clipboard: a manager may look whether it is the owner that asks.
    wire_.convertSelection({.owner = noWindow,
                            .requestor = wire_.ownerWindow(),
                            .selection = atoms_.clipboardManager,
                            .target = atoms_.saveTargets,
                            .property = property,
                            .time = time});
}

void SelectionHandover::progress(Moment now)
{
    if (silenceEnds_)
        silenceEnds_ = now + patience_.silence;
}

void SelectionHandover::selectionNotified(const SelectionNotice& notice)
{
    if (notice.requestor == wire_.ownerWindow() && notice.selection == atoms_.clipboardManager &&
        notice.target == atoms_.saveTargets)
        finish();
}

void SelectionHandover::timePassed(Moment now)
{
    if (const auto end = deadline(); end && now >= *end)
        finish();
}

std::optional<Moment> SelectionHandover::deadline() const
{
    if (!done_)
        return std::nullopt;
    return std::min(silenceEnds_.value_or(wholeEnds_), wholeEnds_);
}

void SelectionHandover::finish()
{
    if (const auto done = std::exchange(done_, nullptr))
        done();
}

} // namespace tessel
