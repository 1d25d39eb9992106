#include "X11/Selections/OutgoingTransfer.h"

#include <algorithm>
#include <limits>

#include "X11/Selections/TextForms.h"

namespace tessel {

OutgoingTransfer::OutgoingTransfer(SelectionWire& wire, const SelectionAtoms& atoms, WindowID requestor,
                                   AtomID property, AtomID type, SharedBytes bytes, Rewriting rewriting,
                                   std::size_t incrementBytes, Moment now)
    : wire_(&wire)
    , requestor_(requestor)
    , property_(property)
    , type_(type)
    , bytes_(std::move(bytes))
    , rewriting_(rewriting)
    , incrementBytes_(incrementBytes)
    , deadline_(now + longestSilence)
{
    constexpr std::size_t mostAnnounced = std::numeric_limits<std::int32_t>::max();
    constexpr std::size_t mostBytesOfCharacter = 4; // Each becomes one byte.
    const std::size_t least =
        rewriting_ == Rewriting::none ? bytes_->size() : bytes_->size() / mostBytesOfCharacter;
    const auto lowerBound = static_cast<std::uint32_t>(std::min(least, mostAnnounced));
    wire_->changeProperty(requestor_, property_, atoms.incr, 32, std::as_bytes(std::span(&lowerBound, 1)));
}

OutgoingTransfer::Progress OutgoingTransfer::propertyDeleted(Moment now)
{
    // The piece of no bytes that ends the transfer has been written and taken.
    if (offset_ > bytes_->size())
        return Progress::finished;
    const std::string_view piece = nextPiece();
    if (rewriting_ == Rewriting::none) {
        wire_->changeProperty(requestor_, property_, type_, 8, std::as_bytes(std::span(piece)));
    } else {
        const std::string rewritten = latin1FromUTF8(piece);
        wire_->changeProperty(requestor_, property_, type_, 8, std::as_bytes(std::span(rewritten)));
    }
    // Past the end stands for the ending piece.
    offset_ = piece.empty() ? bytes_->size() + 1 : offset_ + piece.size();
    deadline_ = now + longestSilence;
    return Progress::underWay;
}

/// Empty at the end. Does not cut a character that is to be rewritten.
std::string_view OutgoingTransfer::nextPiece() const
{
    const std::string_view rest = std::string_view(*bytes_).substr(offset_);
    std::size_t length = std::min(incrementBytes_, rest.size());
    const auto isInCharacter = [&] {
        constexpr unsigned kindBits = 0xC0;
        constexpr unsigned continuation = 0x80;
        return length > 1 && length < rest.size() &&
               (static_cast<std::uint8_t>(rest[length]) & kindBits) == continuation;
    };
    while (rewriting_ != Rewriting::none && isInCharacter())
        --length;
    return rest.substr(0, length);
}

} // namespace tessel
