#include "X11/Selections/OutgoingTransfer.h"

#include <algorithm>
#include <limits>

namespace tessel {

OutgoingTransfer::OutgoingTransfer(SelectionWire& wire, const SelectionAtoms& atoms, WindowID requestor,
                                   AtomID property, AtomID type, SharedBytes bytes,
                                   std::size_t incrementBytes, Moment now)
    : wire_(&wire)
    , requestor_(requestor)
    , property_(property)
    , type_(type)
    , bytes_(std::move(bytes))
    , incrementBytes_(incrementBytes)
    , deadline_(now + longestSilence)
{
    constexpr std::size_t mostAnnounced = std::numeric_limits<std::int32_t>::max();
    const auto lowerBound = static_cast<std::uint32_t>(std::min(bytes_->size(), mostAnnounced));
    wire_->changeProperty(requestor_, property_, atoms.incr, 32, std::as_bytes(std::span(&lowerBound, 1)));
}

OutgoingTransfer::Progress OutgoingTransfer::propertyDeleted(Moment now)
{
    // The piece of no bytes that ends the transfer has been written and taken.
    if (offset_ > bytes_->size())
        return Progress::finished;
    const std::size_t length = std::min(incrementBytes_, bytes_->size() - offset_);
    wire_->changeProperty(requestor_, property_, type_, 8,
                          std::as_bytes(std::span(bytes_->data() + offset_, length)));
    // Past the end stands for the ending piece.
    offset_ = length == 0 ? bytes_->size() + 1 : offset_ + length;
    deadline_ = now + longestSilence;
    return Progress::underWay;
}

} // namespace tessel
