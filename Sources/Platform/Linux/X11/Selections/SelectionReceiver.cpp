#include "X11/Selections/SelectionReceiver.h"

#include <algorithm>
#include <cstring>

namespace tessel {

namespace {

constexpr int bitsOfBytes = 8;
constexpr int bitsOfAtoms = 32;
constexpr std::string_view secretHint = "secret";

} // namespace

SelectionReceiver::SelectionReceiver(SelectionWire& wire, const SelectionAtoms& atoms, AtomID selection)
    : wire_(wire)
    , atoms_(atoms)
    , selection_(selection)
{}

SelectionReceiver::~SelectionReceiver()
{
    end(OwnerState::done, Moment());
    while (!retired_.empty())
        destroyOldestRetiredWindow();
}

void SelectionReceiver::receive(ServerTime time, Moment now)
{
    abandon(now);
    window_ = wire_.createRequestor();
    time_ = time;
    isDelivered_ = false;
    ownerIsGone_ = false;
    conversionCount_ = 0;
    begin(Step::targets, atoms_.targets, mostTargets * sizeof(AtomID), now);
}

void SelectionReceiver::abandon(Moment now)
{
    end(conversion_ ? OwnerState::mayStillWrite : OwnerState::done, now);
    isDelivered_ = true;
    kept_ = SelectionValue();
    companionBytes_ = 0;
    offered_ = {};
    candidates_ = {};
}

void SelectionReceiver::ownerGone()
{
    ownerIsGone_ = true;
    endWithOwner();
}

void SelectionReceiver::endWithOwner()
{
    // What it has left in our window is ours.
    if (isIdle() || conversion_->isReadingWhole())
        return;
    conversion_.reset();
    hasUsedIncrements_ = false;
    end(OwnerState::done, Moment());
    if (!isDelivered_)
        deliver(Readability::unreadable);
    onIdle();
}

/// The owner is silent, or floods us.
void SelectionReceiver::giveUp(Moment now)
{
    end(OwnerState::mayStillWrite, now);
    if (!isDelivered_)
        deliver(Readability::unreadable);
    onIdle();
}

void SelectionReceiver::selectionNotified(const SelectionNotice& notice, Moment now)
{
    if (conversion_)
        afterProgress(conversion_->selectionNotified(notice, now), now);
}

void SelectionReceiver::propertyChanged(const PropertyChange& change, Moment now)
{
    if (conversion_)
        afterProgress(conversion_->propertyChanged(change, now), now);
}

void SelectionReceiver::propertyArrived(const PropertySlice& slice, Moment now)
{
    if (conversion_)
        afterProgress(conversion_->propertyArrived(slice, now), now);
    if (ownerIsGone_)
        endWithOwner();
}

void SelectionReceiver::timePassed(Moment now)
{
    while (!retired_.empty() && now >= retired_.front().end)
        destroyOldestRetiredWindow();
    if (conversion_)
        afterProgress(conversion_->timePassed(now), now);
}

std::optional<Moment> SelectionReceiver::deadline() const
{
    std::optional<Moment> first;
    if (conversion_)
        first = conversion_->deadline();
    if (!retired_.empty())
        first = std::min(first.value_or(Moment::max()), retired_.front().end);
    return first;
}

void SelectionReceiver::begin(Step step, AtomID target, std::size_t mostBytes, Moment now)
{
    noteIncrements();
    step_ = step;
    SelectionRequest conversion;
    conversion.requestor = window_;
    conversion.selection = selection_;
    conversion.target = target;
    conversion.property = atoms_.transferSlots[conversionCount_ % SelectionAtoms::transferSlotCount];
    conversion.time = time_;
    ++conversionCount_;
    const auto content =
        step == Step::text ? IncomingConversion::Content::text : IncomingConversion::Content::bytes;
    conversion_.emplace(wire_, atoms_, conversion, content, mostBytes, now);
}

void SelectionReceiver::afterProgress(IncomingConversion::Progress progress, Moment now)
{
    switch (progress) {
    case IncomingConversion::Progress::underWay:
        return;
    case IncomingConversion::Progress::complete:
        return conversionComplete(now);
    case IncomingConversion::Progress::refused:
        return conversionRefused(now);
    case IncomingConversion::Progress::tooLarge:
        return step_ == Step::companions ? nextCompanion(now) : giveUp(now);
    case IncomingConversion::Progress::failed:
        return giveUp(now);
    }
}

void SelectionReceiver::conversionComplete(Moment now)
{
    const bool hasUsableFormat =
        conversion_->format() == (step_ == Step::targets ? bitsOfAtoms : bitsOfBytes);
    if (!hasUsableFormat)
        return conversionRefused(now);
    switch (step_) {
    case Step::targets:
        return readTargets(conversion_->takeBytes(), now);
    case Step::secretHint: {
        const std::string hint = textFromWire(conversion_->takeBytes(), TextForm::utf8);
        if (hint != secretHint)
            return nextText(now);
        end(OwnerState::done, now);
        deliver(Readability::secret);
        return onIdle();
    }
    case Step::text:
        return textComplete(now);
    case Step::picture:
        return pictureComplete(now);
    case Step::companions:
        return companionComplete(now);
    }
}

void SelectionReceiver::conversionRefused(Moment now)
{
    switch (step_) {
    case Step::targets:
        return planWithoutTargets(now);
    case Step::secretHint:
        // It says that there is a hint and will not tell it: taken for a secret, the mistake that does no
        // harm.
        end(OwnerState::done, now);
        deliver(Readability::secret);
        return onIdle();
    case Step::text:
        return nextText(now);
    case Step::picture:
        return nextPicture(now);
    case Step::companions:
        return nextCompanion(now);
    }
}

void SelectionReceiver::readTargets(const std::string& bytes, Moment now)
{
    offered_.resize(bytes.size() / sizeof(AtomID));
    if (!offered_.empty())
        std::memcpy(offered_.data(), bytes.data(), offered_.size() * sizeof(AtomID));
    const AtomID texts[] = {
        atoms_.compoundText,         atoms_.plainText,     atoms_.text,      atoms_.string,
        atoms_.plainTextUTF8Capital, atoms_.plainTextUTF8, atoms_.utf8String};
    candidates_.clear();
    std::ranges::copy_if(texts, std::back_inserter(candidates_),
                         [&](AtomID target) { return offers(target); });
    if (offers(atoms_.passwordManagerHint))
        return begin(Step::secretHint, atoms_.passwordManagerHint, mostHintBytes, now);
    nextText(now);
}

/// An owner that cannot list its targets (ICCCM section 2.6.2 requires it) may still have text in the two
/// common forms.
void SelectionReceiver::planWithoutTargets(Moment now)
{
    offered_.clear();
    candidates_ = {atoms_.string, atoms_.utf8String};
    nextText(now);
}

bool SelectionReceiver::offers(AtomID target) const
{
    return std::ranges::find(offered_, target) != offered_.end();
}

void SelectionReceiver::nextText(Moment now)
{
    if (!candidates_.empty()) {
        const AtomID target = candidates_.back();
        candidates_.pop_back();
        return begin(Step::text, target, mostValueBytes, now);
    }
    const auto pictures = atoms_.pictureTargets();
    std::copy_if(pictures.rbegin(), pictures.rend(), std::back_inserter(candidates_),
                 [&](AtomID target) { return offers(target); });
    nextPicture(now);
}

void SelectionReceiver::textComplete(Moment now)
{
    auto text = std::make_shared<std::string>(conversion_->takeText());
    // A large one may have room that was never written to, and costs no memory.
    const std::size_t mostRoom =
        text->size() < IncomingConversion::sliceBytes ? text->size() + text->size() / 8 : 2 * text->size();
    if (text->capacity() > mostRoom)
        text->shrink_to_fit();
    const bool isEmpty = text->empty();
    kept_.text = shareText ? shareText(std::move(text)) : std::move(text);
    candidates_.clear();
    if (isEmpty)
        return nextText(now); // A picture may stand beside it.
    deliver(Readability::readable);
    nextCompanion(now);
}

void SelectionReceiver::nextPicture(Moment now)
{
    if (!candidates_.empty()) {
        const AtomID target = candidates_.back();
        candidates_.pop_back();
        return begin(Step::picture, target, mostValueBytes, now);
    }
    deliver(Readability::readable);
    nextCompanion(now);
}

void SelectionReceiver::pictureComplete(Moment now)
{
    auto bytes = std::make_shared<std::string>(conversion_->takeBytes());
    if (bytes->empty())
        return nextPicture(now);
    if (bytes->capacity() > bytes->size() + bytes->size() / 8)
        bytes->shrink_to_fit(); // Pictures stay in the history for long.
    kept_.picture = {std::move(bytes), std::string(*atoms_.pictureType(conversion_->target()))};
    candidates_.clear();
    deliver(Readability::readable);
    nextCompanion(now);
}

void SelectionReceiver::nextCompanion(Moment now)
{
    if (step_ != Step::companions) {
        candidates_.clear();
        const auto companions = atoms_.companionTargets();
        std::copy_if(companions.rbegin(), companions.rend(), std::back_inserter(candidates_),
                     [&](AtomID target) { return offers(target); });
    }
    if (candidates_.empty()) {
        end(OwnerState::done, now);
        return onIdle();
    }
    const AtomID target = candidates_.back();
    candidates_.pop_back();
    const std::size_t room = mostCompanionBytesTogether - companionBytes_;
    begin(Step::companions, target, std::min(mostCompanionBytes, room), now);
}

void SelectionReceiver::companionComplete(Moment now)
{
    auto bytes = std::make_shared<std::string>(conversion_->takeBytes());
    companionBytes_ += bytes->size();
    kept_.companions.push_back({conversion_->target(), conversion_->type(), std::move(bytes)});
    nextCompanion(now);
}

void SelectionReceiver::deliver(Readability readability)
{
    isDelivered_ = true;
    if (readability != Readability::readable) {
        kept_ = SelectionValue();
        candidates_.clear();
    }
    onValue({readability, kept_});
}

/// Ends what is under way with the owner, and its window, sooner or later.
void SelectionReceiver::end(OwnerState state, Moment now)
{
    noteIncrements();
    conversion_.reset();
    offered_ = {};
    const WindowID window = std::exchange(window_, noWindow);
    // After increments an owner may still touch the window, to hear no more of it.
    const bool usedIncrements = std::exchange(hasUsedIncrements_, false);
    const bool isLeftAlone = state == OwnerState::done && !usedIncrements;
    if (window == noWindow)
        return;
    if (isLeftAlone)
        return wire_.destroyRequestor(window);
    if (retired_.size() >= mostRetiredWindows)
        destroyOldestRetiredWindow();
    retired_.push_back({window, now + retirement});
}

void SelectionReceiver::noteIncrements()
{
    hasUsedIncrements_ = hasUsedIncrements_ || (conversion_ && conversion_->comesInIncrements());
}

void SelectionReceiver::destroyOldestRetiredWindow()
{
    wire_.destroyRequestor(retired_.front().window);
    retired_.pop_front();
}

} // namespace tessel
