#include "OwnerStage.h"

#include <algorithm>

#include <poll.h>

namespace tessel::owners {

namespace {

/// Of one of a crowd: with a text of its own, which it takes the selection with once.
Behaviour memberOfCrowd(Behaviour behaviour, int number)
{
    behaviour.takesAgainEvery.reset();
    behaviour.crowdSize = 1;
    for (Offer& offer : behaviour.offers)
        offer.bytes = std::make_shared<const std::string>(*offer.bytes + " " + std::to_string(number));
    return behaviour;
}

} // namespace

OwnerStage::OwnerStage(Behaviour behaviour, std::string selection)
    : behaviour_(std::move(behaviour))
    , selection_(std::move(selection))
{}

void OwnerStage::run(std::optional<Clock::time_point> end, int stopDescriptor,
                     const std::function<void(std::string_view)>& say)
{
    while (!end || Clock::now() < *end) {
        if (!isEverybodyIn() && Clock::now() >= nextEntry_)
            letEnter();
        announce(say);
        for (const auto& owner : owners_)
            owner->work();
        const bool isCrowd = behaviour_.crowdSize > 1;
        std::erase_if(owners_, [&](const auto& owner) {
            return owner->isOver() || (isCrowd && owner->isDispensable());
        });
        if ((owners_.empty() && isEverybodyIn()) || isStopped(stopDescriptor))
            return;
        wait(end, stopDescriptor);
    }
}

void OwnerStage::letEnter()
{
    ++entered_;
    Behaviour behaviour = behaviour_.crowdSize > 1 ? memberOfCrowd(behaviour_, entered_) : behaviour_;
    owners_.push_back(std::make_unique<SelectionOwner>(std::move(behaviour), selection_));
    owners_.back()->begin();
    nextEntry_ += behaviour_.takesAgainEvery.value_or(std::chrono::milliseconds{0});
}

void OwnerStage::announce(const std::function<void(std::string_view)>& say)
{
    if (!hasSaidOwned_)
        say("owned");
    hasSaidOwned_ = true;
    const bool isCrowdIn = behaviour_.crowdSize > 1 && isEverybodyIn();
    const bool hasTakenAll =
        std::ranges::any_of(owners_, [](const auto& owner) { return owner->hasTakenAll(); });
    if (!hasSaidFinished_ && (isCrowdIn || hasTakenAll)) {
        say("finished");
        hasSaidFinished_ = true;
    }
}

void OwnerStage::wait(std::optional<Clock::time_point> end, int stopDescriptor)
{
    auto wakeUp = end.value_or(Clock::time_point::max());
    if (!isEverybodyIn())
        wakeUp = std::min(wakeUp, nextEntry_);
    std::vector<pollfd> sources = {{stopDescriptor, POLLIN, 0}};
    for (const auto& owner : owners_) {
        wakeUp = std::min(wakeUp, owner->nextAction().value_or(wakeUp));
        sources.push_back({owner->client().descriptor(), POLLIN, 0});
    }
    const bool isForEver = wakeUp == Clock::time_point::max();
    poll(sources.data(), sources.size(), isForEver ? -1 : millisecondsUntil(wakeUp));
}

bool OwnerStage::isStopped(int stopDescriptor) const
{
    pollfd source = {stopDescriptor, POLLIN, 0};
    return poll(&source, 1, 0) > 0;
}

} // namespace tessel::owners
