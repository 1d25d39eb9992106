#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "X11/Selections/HandoverPatience.h"
#include "X11/Selections/SelectionAtoms.h"
#include "X11/Selections/SelectionWire.h"

namespace tessel {

/// Hands the clipboard's value on to the clipboard manager before we end (freedesktop.org clipboard manager,
/// SAVE_TARGETS). The manager then asks for the value like everybody else. A state machine without input or
/// output of its own and without a clock.
class SelectionHandover {
public:
    SelectionHandover(SelectionWire& wire, const SelectionAtoms& atoms)
        : wire_(wire)
        , atoms_(atoms)
    {}

    void setPatience(const HandoverPatience& patience) { patience_ = patience; }
    /// The handover will begin, or finish without. `done` runs once, at its end, whatever that is. One at a
    /// time.
    void prepare(Moment now, std::function<void()> done);
    /// Asks the manager to save these targets; `time` is the server's. The end is when the manager has them,
    /// refuses, is not there or is silent.
    void begin(const std::vector<AtomID>& targets, ServerTime time, Moment now);
    /// From `prepare` to the end.
    bool isUnderWay() const { return done_ != nullptr; }
    /// Ends it, if it is under way.
    void finish();
    /// Somebody asks for a value, or takes a piece of one.
    void progress(Moment now);
    void selectionNotified(const SelectionNotice& notice);
    void timePassed(Moment now);
    std::optional<Moment> deadline() const;

private:
    SelectionWire& wire_;
    const SelectionAtoms& atoms_;
    HandoverPatience patience_;
    std::function<void()> done_;        ///< Empty: nothing is handed on.
    std::optional<Moment> silenceEnds_; ///< None: the manager has not been asked yet.
    Moment wholeEnds_;
};

} // namespace tessel
