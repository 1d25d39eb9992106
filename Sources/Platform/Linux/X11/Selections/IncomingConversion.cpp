#include "X11/Selections/IncomingConversion.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tessel {

namespace {

/// How a text of `type` is written (ICCCM section 2.6.2). None: that is no text type.
std::optional<TextForm> textForm(const SelectionAtoms& atoms, AtomID type)
{
    if (type == atoms.utf8String || type == atoms.plainTextUTF8 || type == atoms.plainTextUTF8Capital)
        return TextForm::utf8;
    if (type == atoms.string || type == atoms.cString)
        return TextForm::latin1;
    if (type == atoms.compoundText)
        return TextForm::compoundText;
    if (type == atoms.text || type == atoms.plainText)
        return TextForm::utf8; // Says nothing about the form; UTF-8 is what is meant today, and repair covers
                               // the rest.
    return std::nullopt;
}

} // namespace

IncomingConversion::IncomingConversion(SelectionWire& wire, const SelectionAtoms& atoms,
                                       const SelectionRequest& conversion, Content content,
                                       std::size_t mostBytes, Moment now)
    : wire_(wire)
    , atoms_(atoms)
    , conversion_(conversion)
    , content_(content)
    , mostBytes_(mostBytes)
    , deadline_(now + longestSilence)
{
    wire_.convertSelection(conversion_);
}

IncomingConversion::Progress IncomingConversion::selectionNotified(const SelectionNotice& notice, Moment now)
{
    if (stage_ != Stage::awaitingAnswer || notice.requestor != conversion_.requestor)
        return progress_;
    // An answer to an earlier conversion of the same owner can still be under way; each has its own property.
    if (notice.selection != conversion_.selection || notice.target != conversion_.target)
        return progress_;
    if (notice.property != conversion_.property)
        return finish(Progress::refused);
    deadline_ = now + longestSilence;
    stage_ = Stage::readingProperty;
    readFrom(0);
    return progress_;
}

IncomingConversion::Progress IncomingConversion::propertyChanged(const PropertyChange& change, Moment now)
{
    if (!isAskedProperty(change.window, change.property) || change.kind != PropertyChangeKind::newValue)
        return progress_;
    // The next piece can be there before we have seen the last slice of this one, or the announcement.
    if (stage_ == Stage::readingIncrement || stage_ == Stage::readingProperty)
        incrementIsWaiting_ = true;
    if (stage_ != Stage::awaitingIncrement)
        return progress_;
    deadline_ = now + longestSilence;
    stage_ = Stage::readingIncrement;
    readFrom(0);
    return progress_;
}

IncomingConversion::Progress IncomingConversion::propertyArrived(const PropertySlice& slice, Moment now)
{
    if (!isAskedProperty(slice.window, slice.property) || progress_ != Progress::underWay)
        return progress_;
    deadline_ = now + longestSilence;
    if (stage_ == Stage::readingIncrement)
        return continueIncrements(slice);
    if (stage_ != Stage::readingProperty)
        return progress_;
    if (slice.type == noAtom)
        return finish(Progress::refused); // It promised a property that is not there.
    if (slice.type == atoms_.incr && offset_ == 0)
        return beginIncrements(slice);
    if (append(slice) != Progress::underWay)
        return progress_;
    if (slice.bytesAfter == 0)
        return finish(Progress::complete);
    readFrom(offset_ + slice.bytes.size());
    return progress_;
}

IncomingConversion::Progress IncomingConversion::timePassed(Moment now)
{
    return progress_ == Progress::underWay && now >= deadline_ ? finish(Progress::failed) : progress_;
}

IncomingConversion::Progress IncomingConversion::finish(Progress outcome)
{
    progress_ = outcome;
    if (outcome != Progress::complete) {
        bytes_ = std::string();
        decoder_.reset();
    }
    return outcome;
}

void IncomingConversion::readFrom(std::size_t offset)
{
    offset_ = offset;
    wire_.readProperty(conversion_.requestor, conversion_.property, offset, sliceBytes,
                       AfterReading::deleteWhenComplete);
}

/// Reading the property has deleted it, which is what the owner waits for to begin (ICCCM section 2.7.2).
IncomingConversion::Progress IncomingConversion::beginIncrements(const PropertySlice& slice)
{
    std::uint32_t announced = 0;
    if (slice.format == 32 && slice.bytes.size() >= sizeof announced)
        std::memcpy(&announced, slice.bytes.data(), sizeof announced);
    expectedBytes_ = std::min<std::size_t>(announced, mostBytes_); // Only a lower bound, and only a claim.
    comesInIncrements_ = true;
    awaitIncrement();
    return progress_;
}

void IncomingConversion::awaitIncrement()
{
    stage_ = Stage::awaitingIncrement;
    if (!std::exchange(incrementIsWaiting_, false))
        return;
    stage_ = Stage::readingIncrement;
    readFrom(0);
}

IncomingConversion::Progress IncomingConversion::continueIncrements(const PropertySlice& slice)
{
    const bool isEnd = slice.type != noAtom && offset_ == 0 && slice.bytes.empty() && slice.bytesAfter == 0;
    if (isEnd) {
        const bool isNothing = type_ == noAtom;
        if (isNothing && beginContent(slice) != Progress::underWay)
            return progress_;
        return finish(Progress::complete);
    }
    if (slice.type != noAtom && append(slice) != Progress::underWay)
        return progress_;
    if (slice.type != noAtom && slice.bytesAfter > 0) {
        readFrom(offset_ + slice.bytes.size());
        return progress_;
    }
    awaitIncrement();
    return progress_;
}

/// The type says what the owner sends; the target says what was asked for, and believes nothing else.
IncomingConversion::Progress IncomingConversion::beginContent(const PropertySlice& slice)
{
    type_ = slice.type;
    format_ = slice.format;
    expectedBytes_ = std::max(expectedBytes_, std::min(slice.bytes.size() + slice.bytesAfter, mostBytes_));
    if (content_ == Content::bytes) {
        bytes_.reserve(expectedBytes_); // Room that is never written to costs no memory.
        return progress_;
    }
    constexpr int bitsOfText = 8;
    const auto form = textForm(atoms_, type_);
    if (!form || format_ != bitsOfText)
        return finish(Progress::refused);
    decoder_.emplace(*form);
    decoder_->expect(expectedBytes_);
    return progress_;
}

IncomingConversion::Progress IncomingConversion::append(const PropertySlice& slice)
{
    const bool isFirst = type_ == noAtom;
    if (isFirst && beginContent(slice) != Progress::underWay)
        return progress_;
    if (slice.type != type_ || slice.format != format_)
        return finish(Progress::refused);
    if (slice.bytes.empty() && slice.bytesAfter > 0)
        return finish(Progress::failed); // It shrinks and grows under our hands; there would be no end to it.
    receivedBytes_ += slice.bytes.size();
    // Whoever sends increments goes on with them; a property that is too large just stays where it is.
    if (receivedBytes_ > mostBytes_ || slice.bytesAfter > mostBytes_ - receivedBytes_)
        return finish(comesInIncrements_ ? Progress::failed : Progress::tooLarge);
    const std::string_view piece(reinterpret_cast<const char*>(slice.bytes.data()), slice.bytes.size());
    if (decoder_)
        decoder_->append(piece);
    else
        bytes_.append(piece);
    const bool hasGrownTooLarge = decoder_ && decoder_->size() > mostBytes_;
    return hasGrownTooLarge ? finish(Progress::failed) : progress_;
}

bool IncomingConversion::isAskedProperty(WindowID window, AtomID property) const
{
    return window == conversion_.requestor && property == conversion_.property;
}

} // namespace tessel
