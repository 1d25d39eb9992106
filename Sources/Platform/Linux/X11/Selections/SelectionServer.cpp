#include "X11/Selections/SelectionServer.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "X11/Selections/TextForms.h"
#include "X11/Selections/UTF8.h"

namespace tessel {

namespace {

SharedBytes bytesOfAtoms(std::span<const AtomID> atoms)
{
    return std::make_shared<const std::string>(reinterpret_cast<const char*>(atoms.data()),
                                               atoms.size_bytes());
}

} // namespace

SelectionServer::SelectionServer(SelectionWire& wire, const SelectionAtoms& atoms)
    : wire_(wire)
    , atoms_(atoms)
{}

void SelectionServer::offer(AtomID selection, SharedSelectionValue value, ServerTime time)
{
    auto offer = std::make_shared<Offer>();
    offer->value = std::move(value);
    offer->time = time;
    offers_[selection] = std::move(offer);
}

void SelectionServer::withdraw(AtomID selection)
{
    offers_.erase(selection);
}

SelectionServer::SharedOffer SelectionServer::offered(AtomID selection) const
{
    const auto found = offers_.find(selection);
    return found == offers_.end() ? nullptr : found->second;
}

void SelectionServer::selectionCleared(AtomID selection)
{
    withdraw(selection);
}

void SelectionServer::selectionRequested(const SelectionRequest& asked, Moment now)
{
    SelectionRequest request = asked;
    const bool isObsoleteClient = request.property == noAtom;
    if (isObsoleteClient)
        request.property = request.target; // ICCCM section 2.2.
    if (request.requestor == wire_.ownerWindow())
        return notify(request, noAtom); // Nobody else has business with our window's properties.
    const SharedOffer offer = offered(request.selection);
    // A request from before our ownership is meant for the owner of that time (ICCCM section 2.2).
    const bool isTooOld = offer && request.time != currentTime && isBefore(request.time, offer->time);
    if (!offer || isTooOld)
        return notify(request, noAtom);
    if (request.selection == atoms_.clipboardManager && request.target == atoms_.saveTargets)
        return onSaveTargets(request);
    if (request.target != atoms_.multiple)
        return run({request, offer, {{request.target, request.property}}, {}, noAtom}, now);
    if (isObsoleteClient)
        return notify(request, noAtom); // The pairs would stand in the property that it has not named.
    readPairs(request, offer);
}

void SelectionServer::readPairs(const SelectionRequest& request, SharedOffer offer)
{
    if (unreadPairs_.size() >= mostTransfers)
        return notify(request, noAtom);
    unreadPairs_.emplace_back(request, std::move(offer));
    wire_.readProperty(request.requestor, request.property, 0, mostMultiplePairs * sizeof(Pair),
                       AfterReading::keep);
}

void SelectionServer::propertyArrived(const PropertySlice& slice, Moment now)
{
    const auto found = std::ranges::find_if(unreadPairs_, [&](const auto& unread) {
        return unread.first.requestor == slice.window && unread.first.property == slice.property;
    });
    if (found == unreadPairs_.end())
        return;
    Job job;
    std::tie(job.request, job.offer) = std::move(*found);
    unreadPairs_.erase(found);
    if (slice.format != 32 || slice.bytesAfter > 0)
        return notify(job.request, noAtom);
    job.pairs.resize(slice.bytes.size() / sizeof(Pair));
    if (!job.pairs.empty())
        std::memcpy(job.pairs.data(), slice.bytes.data(), job.pairs.size() * sizeof(Pair));
    run(std::move(job), now);
}

void SelectionServer::run(Job job, Moment now)
{
    std::vector<Reply> replies;
    for (const Pair& pair : job.pairs) {
        replies.push_back(reply(job, pair.target));
        if (replies.back().kind != ReplyKind::convertFirst)
            continue;
        if (waiting_.size() >= mostTransfers)
            return notify(job.request, noAtom);
        const bool isAskedAlready = isWanted(job.offer, pair.target);
        job.waitingFor = pair.target;
        const SharedOffer offer = job.offer;
        waiting_.push_back(std::move(job));
        if (!isAskedAlready)
            onPictureWanted(offer, waiting_.back().waitingFor);
        return;
    }
    complete(std::move(job), replies, now);
}

void SelectionServer::complete(Job job, const std::vector<Reply>& replies, Moment now)
{
    const SelectionRequest& request = job.request;
    if (request.target != atoms_.multiple) {
        const bool isWritten = write(request.requestor, request.property, replies.front(), now);
        return notify(request, isWritten ? request.property : noAtom);
    }
    bool hasFailures = false;
    for (std::size_t index = 0; index < job.pairs.size(); ++index) {
        Pair& pair = job.pairs[index];
        if (pair.property != noAtom && write(request.requestor, pair.property, replies[index], now))
            continue;
        // What failed is marked in the list (ICCCM section 2.6.2, MULTIPLE).
        pair.property = noAtom;
        hasFailures = true;
    }
    if (hasFailures)
        wire_.changeProperty(request.requestor, request.property, atoms_.atomPair, 32,
                             std::as_bytes(std::span(job.pairs)));
    notify(request, request.property);
}

/// False: there is nothing to be written, or too many are served already.
bool SelectionServer::write(WindowID requestor, AtomID property, const Reply& reply, Moment now)
{
    if (reply.kind != ReplyKind::ready)
        return false;
    // A second request for the same property takes the place of the first.
    for (std::size_t index = transfers_.size(); index-- > 0;) {
        if (transfers_[index].requestor() == requestor && transfers_[index].property() == property)
            endTransfer(index);
    }
    if (reply.bytes->size() <= incrementThreshold()) {
        wire_.changeProperty(requestor, property, reply.type, reply.format,
                             std::as_bytes(std::span(reply.bytes->data(), reply.bytes->size())));
        return true;
    }
    if (transfers_.size() >= mostTransfers)
        return false;
    wire_.watchRequestor(requestor);
    transfers_.emplace_back(wire_, atoms_, requestor, property, reply.type, reply.bytes, reply.rewriting,
                            incrementThreshold(), now);
    return true;
}

/// More than one request carries goes in increments (ICCCM section 2.5). The request takes some of it for
/// itself.
std::size_t SelectionServer::incrementThreshold() const
{
    constexpr std::size_t requestHead = 100;
    return wire_.maximumRequestBytes() - requestHead;
}

void SelectionServer::notify(const SelectionRequest& request, AtomID property)
{
    wire_.notifyRequestor({request.requestor, request.selection, request.target, property, request.time});
}

SelectionServer::Reply SelectionServer::reply(const Job& job, AtomID target) const
{
    const Offer& offer = *job.offer;
    if (target == atoms_.targets)
        return targetsReply(job);
    if (target == atoms_.timestamp)
        return {ReplyKind::ready, atoms_.integer, 32, bytesOfAtoms(std::array{offer.time})};
    for (const auto& companion : offer.value->companions) {
        if (companion.target == target)
            return {ReplyKind::ready, companion.type, 8, companion.bytes};
    }
    if (offer.value->text && isTextTarget(target))
        return textReply(offer, target);
    if (atoms_.pictureType(target))
        return pictureReply(job, target);
    return {};
}

SelectionServer::Reply SelectionServer::targetsReply(const Job& job) const
{
    std::vector<AtomID> targets = {atoms_.targets, atoms_.timestamp, atoms_.multiple};
    if (job.request.selection == atoms_.clipboardManager)
        targets.push_back(atoms_.saveTargets);
    for (const AtomID target : targetsOf(*job.offer->value))
        targets.push_back(target);
    return {ReplyKind::ready, atoms_.atom, 32, bytesOfAtoms(targets)};
}

std::vector<AtomID> SelectionServer::targetsOf(const SelectionValue& value) const
{
    std::vector<AtomID> targets;
    if (value.text)
        targets = {atoms_.utf8String, atoms_.plainTextUTF8, atoms_.plainText, atoms_.string, atoms_.text};
    const auto add = [&](AtomID target) {
        if (target != noAtom && std::ranges::find(targets, target) == targets.end())
            targets.push_back(target);
    };
    if (value.picture.bytes) {
        add(atoms_.pictureTarget(value.picture.mimeType));
        for (const AtomID target : {atoms_.png, atoms_.bmp, atoms_.tiff, atoms_.jpeg})
            add(target);
    }
    if (value.foreignImage)
        add(atoms_.png);
    for (const auto& companion : value.companions)
        add(companion.target);
    return targets;
}

std::vector<AtomID> SelectionServer::targetsToHandOn(const SelectionValue& value) const
{
    const bool isLargeText = value.text && value.text->size() > incrementThreshold();
    std::vector<AtomID> targets;
    for (const AtomID target : targetsOf(value)) {
        // A large text goes once, and a picture is not blown up.
        const bool isSpare = isTextTarget(target)
                                 ? isLargeText && target != atoms_.utf8String
                                 : target == atoms_.bmp || target == atoms_.tiff || target == atoms_.jpeg;
        const bool isOwnForm = value.picture.bytes && atoms_.pictureTarget(value.picture.mimeType) == target;
        if (!isSpare || isOwnForm)
            targets.push_back(target);
    }
    return targets;
}

bool SelectionServer::isTextTarget(AtomID target) const
{
    return target == atoms_.utf8String || target == atoms_.plainTextUTF8 ||
           target == atoms_.plainTextUTF8Capital || target == atoms_.plainText || target == atoms_.string ||
           target == atoms_.text;
}

SelectionServer::Reply SelectionServer::textReply(const Offer& offer, AtomID target) const
{
    const SharedText& text = offer.value->text;
    // Latin-1 is asked for, or the choice is ours and both are the same (ICCCM section 2.6.2, TEXT).
    const bool wantsLatin1 = target == atoms_.string || target == atoms_.text;
    if (wantsLatin1 && UTF8::isASCII(*text))
        return {ReplyKind::ready, atoms_.string, 8, text};
    if (target == atoms_.text)
        return {ReplyKind::ready, atoms_.utf8String, 8, text};
    if (target != atoms_.string)
        return {ReplyKind::ready, target, 8, text};
    // A large text is rewritten piece by piece as it goes, and never there twice.
    if (text->size() > incrementThreshold())
        return {ReplyKind::ready, atoms_.string, 8, text, OutgoingTransfer::Rewriting::utf8ToLatin1};
    return {ReplyKind::ready, atoms_.string, 8, std::make_shared<const std::string>(latin1FromUTF8(*text))};
}

SelectionServer::Reply SelectionServer::pictureReply(const Job& job, AtomID target) const
{
    const SelectionValue& value = *job.offer->value;
    if (value.picture.bytes && atoms_.pictureType(target) == value.picture.mimeType)
        return {ReplyKind::ready, target, 8, value.picture.bytes};
    const auto targets = targetsOf(value);
    if (std::ranges::find(targets, target) == targets.end())
        return {};
    const auto converted = job.converted.find(target);
    if (converted == job.converted.end())
        return {ReplyKind::convertFirst};
    if (!converted->second)
        return {};
    return {ReplyKind::ready, target, 8, converted->second};
}

bool SelectionServer::isWanted(const SharedOffer& offer, AtomID target) const
{
    return std::ranges::any_of(
        waiting_, [&](const Job& job) { return job.offer == offer && job.waitingFor == target; });
}

void SelectionServer::pictureConverted(const SharedOffer& offer, AtomID target, SharedBytes bytes, Moment now)
{
    const auto firstReady = std::stable_partition(waiting_.begin(), waiting_.end(), [&](const Job& job) {
        return job.offer != offer || job.waitingFor != target;
    });
    std::vector<Job> ready(std::make_move_iterator(firstReady), std::make_move_iterator(waiting_.end()));
    waiting_.erase(firstReady, waiting_.end());
    for (Job& job : ready) {
        job.converted[target] = bytes;
        job.waitingFor = noAtom;
        run(std::move(job), now);
    }
}

/// The answer is an empty property of type NULL (freedesktop.org clipboard manager).
void SelectionServer::answerSaveTargets(const SelectionRequest& request)
{
    wire_.changeProperty(request.requestor, request.property, atoms_.null, 32, {});
    notify(request, request.property);
}

void SelectionServer::propertyChanged(const PropertyChange& change, Moment now)
{
    if (change.kind != PropertyChangeKind::deleted)
        return;
    for (std::size_t index = 0; index < transfers_.size(); ++index) {
        OutgoingTransfer& transfer = transfers_[index];
        if (transfer.requestor() != change.window || transfer.property() != change.property)
            continue;
        if (transfer.propertyDeleted(now) == OutgoingTransfer::Progress::finished)
            endTransfer(index);
        return;
    }
}

void SelectionServer::requestorGone(WindowID window)
{
    for (std::size_t index = transfers_.size(); index-- > 0;) {
        if (transfers_[index].requestor() == window)
            endTransfer(index);
    }
    std::erase_if(waiting_, [&](const Job& job) { return job.request.requestor == window; });
}

void SelectionServer::timePassed(Moment now)
{
    for (std::size_t index = transfers_.size(); index-- > 0;) {
        if (now >= transfers_[index].deadline())
            endTransfer(index);
    }
}

std::optional<Moment> SelectionServer::deadline() const
{
    const auto first = std::ranges::min_element(transfers_, {}, &OutgoingTransfer::deadline);
    if (first == transfers_.end())
        return std::nullopt;
    return first->deadline();
}

void SelectionServer::endTransfer(std::size_t index)
{
    const WindowID window = transfers_[index].requestor();
    transfers_.erase(transfers_.begin() + static_cast<std::ptrdiff_t>(index));
    const bool isServedStill =
        std::ranges::any_of(transfers_, [&](const auto& other) { return other.requestor() == window; });
    if (!isServedStill)
        wire_.unwatchRequestor(window);
}

} // namespace tessel
