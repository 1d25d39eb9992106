#pragma once

#include <optional>
#include <string>

#include "X11/Selections/SelectionAtoms.h"
#include "X11/Selections/SelectionWire.h"
#include "X11/Selections/TextDecoder.h"

namespace tessel {

/// One target of a selection on its way to us: the request, the owner's answer, and the property, whole or in
/// increments (ICCCM sections 2.4 and 2.7.2). Believes nothing that the owner says about lengths; what it
/// holds never exceeds the given bound by more than one slice. A text is decoded while it comes.
class IncomingConversion {
public:
    /// An owner that says nothing for this long has failed. It restarts with every piece, however small, so
    /// that a large value may take as long as it needs: neither the time that it takes nor the number or the
    /// size of its pieces is bounded, only the silence between two of them. An owner that sends a byte now
    /// and then costs a read for each, and is left as soon as there is a new one. Long enough for an
    /// application that renders a big picture first, or is busy, and for what is sent in one piece of any
    /// size on a busy machine. Nobody waits for it: the next owner is turned to at once.
    static constexpr std::chrono::seconds longestSilence{30};
    /// Properties are read in pieces of this many bytes, straight into the final buffer: large enough that a
    /// big text needs few round trips, small enough that serving others goes on in between.
    static constexpr std::size_t sliceBytes = std::size_t{1} << 20;

    enum class Progress {
        underWay,
        complete, ///< `takeBytes` or `takeText`, `type` and `format` have the value.
        refused,  ///< The owner does not give this target, or what it gave is unusable. Another target may
                  ///< work.
        tooLarge, ///< The value is more than is taken, and stays where it is.
        failed,   ///< The owner is silent, or floods us. Expect nothing more of it.
    };

    enum class Content { bytes, text };

    /// What to ask for: the requestor window, the selection, the target, the property to use and the time.
    IncomingConversion(SelectionWire& wire, const SelectionAtoms& atoms, const SelectionRequest& conversion,
                       Content content, std::size_t mostBytes, Moment now);

    AtomID target() const { return conversion_.target; }
    /// Whether the owner sends, or has sent, the value in increments.
    bool comesInIncrements() const { return comesInIncrements_; }
    /// Whether the owner has done its part: the value is in our window, and being read.
    bool isReadingWhole() const
    {
        return progress_ == Progress::underWay && stage_ == Stage::readingProperty;
    }
    /// When silence becomes failure.
    Moment deadline() const { return deadline_; }

    Progress selectionNotified(const SelectionNotice& notice, Moment now);
    Progress propertyChanged(const PropertyChange& change, Moment now);
    Progress propertyArrived(const PropertySlice& slice, Moment now);
    Progress timePassed(Moment now);

    AtomID type() const { return type_; }
    int format() const { return format_; }
    std::string takeBytes() { return std::move(bytes_); }
    std::string takeText() { return decoder_->finish(); }

private:
    enum class Stage {
        awaitingAnswer,
        readingProperty,   ///< The whole value is in one property.
        awaitingIncrement, ///< INCR: the owner is to write the next piece.
        readingIncrement,  ///< INCR: reading such a piece.
    };

    Progress finish(Progress outcome);
    void readFrom(std::size_t offset);
    Progress beginIncrements(const PropertySlice& slice);
    void awaitIncrement();
    Progress continueIncrements(const PropertySlice& slice);
    Progress append(const PropertySlice& slice);
    Progress beginContent(const PropertySlice& slice);
    bool isAskedProperty(WindowID window, AtomID property) const;

    SelectionWire& wire_;
    const SelectionAtoms& atoms_;
    SelectionRequest conversion_;
    Content content_;
    std::size_t mostBytes_; ///< On the wire, and of a text that is made of it.
    Moment deadline_;
    Stage stage_ = Stage::awaitingAnswer;
    Progress progress_ = Progress::underWay;
    bool comesInIncrements_ = false;
    bool incrementIsWaiting_ = false;
    std::size_t offset_ = 0; ///< In the property that is being read.
    AtomID type_ = noAtom;
    int format_ = 0;
    std::size_t expectedBytes_ = 0;
    std::size_t receivedBytes_ = 0;
    std::string bytes_;
    std::optional<TextDecoder> decoder_; ///< Of a text, as soon as its type is known.
};

} // namespace tessel
