#include "Updates/FeedUpdaterController.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Updates/NewestUpdate.h"
#include "Updates/VersionOrder.h"

namespace tessel {

FeedUpdaterController::FeedUpdaterController(const Needs& needs, UpdateSource source,
                                             std::string currentVersion)
    : needs_(needs)
    , source_(std::move(source))
    , currentVersion_(std::move(currentVersion))
{}

FeedUpdaterController::~FeedUpdaterController()
{
    if (shown_)
        needs_.driver.close();
}

void FeedUpdaterController::start()
{
    if (!source_.feed || !source_.checkInterval)
        return;
    timer_ = needs_.mainQueue.repeat(firstDelay, [this] {
        timer_ = needs_.mainQueue.repeat(glanceInterval, [this] { glance(); });
        glance();
    });
}

void FeedUpdaterController::glance()
{
    // Who has not answered yet is not asked again.
    if (loading_ || shown_ || !isDue())
        return;
    occasion_ = UpdateOccasion::unasked;
    load();
}

bool FeedUpdaterController::isDue() const
{
    const auto lastCheck = needs_.rememberedState.number(lastCheckKey);
    if (!lastCheck)
        return true;
    const double interval = std::max(*source_.checkInterval, glanceInterval);
    // The nearest glance counts. A glance that comes a moment too early would else make an hour two.
    constexpr double tolerance = glanceInterval / 2;
    // A clock that was wrong and has been set back may have left a time that is far in the future.
    return std::abs(needs_.clock.now() - *lastCheck) >= interval - tolerance;
}

void FeedUpdaterController::checkForUpdates()
{
    if (!source_.feed)
        return show(PackagesBringUpdates(), UpdateOccasion::asked);
    if (shown_ &&
        (std::holds_alternative<UpdateIsSought>(*shown_) || std::holds_alternative<UpdateIsFound>(*shown_)))
        return needs_.driver.bringForward();
    show(UpdateIsSought(), UpdateOccasion::asked);
    // A look of its own that is under way is from now on the user's.
    occasion_ = UpdateOccasion::asked;
    if (!loading_)
        load();
}

void FeedUpdaterController::load()
{
    loadingBegan_ = needs_.clock.now();
    loading_ = source_.feed->load([this](const UpdateFeedResult& result) { finish(result); });
}

void FeedUpdaterController::finish(const UpdateFeedResult& result)
{
    loading_.reset();
    remember(result);
    tell(result, occasion_);
}

void FeedUpdaterController::remember(const UpdateFeedResult& result)
{
    // Without a network nothing has been looked at. There may be one the next hour.
    const auto* failure = std::get_if<UpdateFeedFailure>(&result);
    if (failure == nullptr || *failure != UpdateFeedFailure::offline)
        needs_.rememberedState.setDouble(lastCheckKey, loadingBegan_);
}

void FeedUpdaterController::tell(const UpdateFeedResult& result, UpdateOccasion occasion)
{
    const bool isAsked = occasion == UpdateOccasion::asked;
    if (const auto* failure = std::get_if<UpdateFeedFailure>(&result)) {
        if (isAsked)
            show(*failure, occasion);
        return;
    }
    const UpdateItem* update =
        newestUpdate(std::get<std::vector<UpdateItem>>(result), currentVersion_, source_.systemVersion);
    if (update != nullptr && (isAsked || !isSkipped(*update)))
        show(UpdateIsFound{*update, currentVersion_}, occasion);
    else if (isAsked)
        show(ProgramIsUpToDate{currentVersion_}, occasion);
}

bool FeedUpdaterController::isSkipped(const UpdateItem& item) const
{
    const auto skipped = needs_.rememberedState.string(skippedVersionKey);
    return skipped && compareVersions(*skipped, item.version) == 0;
}

void FeedUpdaterController::show(UpdateStatus status, UpdateOccasion occasion)
{
    shown_ = std::move(status);
    needs_.driver.show(*shown_, occasion, [this](UpdateAnswer answer) { obey(answer); });
}

void FeedUpdaterController::obey(UpdateAnswer answer)
{
    needs_.driver.close();
    const auto status = std::exchange(shown_, std::nullopt);
    loading_.reset();
    const auto* found = status ? std::get_if<UpdateIsFound>(&*status) : nullptr;
    if (found == nullptr)
        return;
    if (answer == UpdateAnswer::skip)
        needs_.rememberedState.setString(skippedVersionKey, found->item.version);
    if (answer == UpdateAnswer::openDownloadPage)
        needs_.workspace.openURL(found->item.downloadPage);
}

} // namespace tessel
