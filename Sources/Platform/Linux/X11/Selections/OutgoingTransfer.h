#pragma once

#include <string_view>

#include "X11/Selections/SelectionAtoms.h"
#include "X11/Selections/SelectionValue.h"
#include "X11/Selections/SelectionWire.h"

namespace tessel {

/// One large value on its way to one requestor, in increments (ICCCM section 2.7.2).
class OutgoingTransfer {
public:
    /// A requestor that has not taken a piece for this long is given up. It restarts with every piece, so
    /// that a slow requestor may take as long as it needs for the whole.
    static constexpr std::chrono::seconds longestSilence{10};
    enum class Progress { underWay, finished };
    /// What becomes of the bytes on their way.
    enum class Rewriting { none, utf8ToLatin1 };

    /// Writes the announcement. The requestor must be watched already, and be notified afterwards.
    OutgoingTransfer(SelectionWire& wire, const SelectionAtoms& atoms, WindowID requestor, AtomID property,
                     AtomID type, SharedBytes bytes, Rewriting rewriting, std::size_t incrementBytes,
                     Moment now);

    WindowID requestor() const { return requestor_; }
    AtomID property() const { return property_; }
    Moment deadline() const { return deadline_; }

    /// The requestor has taken the last piece away.
    Progress propertyDeleted(Moment now);

private:
    std::string_view nextPiece() const;

    SelectionWire* wire_;
    WindowID requestor_;
    AtomID property_;
    AtomID type_;
    SharedBytes bytes_;
    Rewriting rewriting_;
    std::size_t incrementBytes_;
    std::size_t offset_ = 0;
    Moment deadline_;
};

} // namespace tessel
