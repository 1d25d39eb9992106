#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Clock.h"
#include "DefaultsStore.h"
#include "MainQueue.h"
#include "Token.h"
#include "UpdateSource.h"
#include "UpdaterController.h"
#include "Updates/UpdateUserDriver.h"
#include "Workspace.h"

namespace tessel {

/// Looks for updates in a feed, at the user's request and by itself, and tells the user. It downloads and
/// installs nothing.
///
/// By itself it looks once in an interval of wall time, as near as its glances come, and speaks only of a
/// version that the user has not skipped. Asked, it tells whatever comes of it, of a skipped version too.
class FeedUpdaterController final : public UpdaterController {
public:
    /// What it looks at, all of which outlives it.
    struct Needs {
        UpdateUserDriver& driver;
        DefaultsStore& rememberedState;
        MainQueue& mainQueue;
        const Clock& clock;
        Workspace& workspace;
    };
    /// @name What is remembered from one run to the next
    /// @{
    static constexpr std::string_view lastCheckKey = "updates.lastCheck"; ///< A `Date`: when it began.
    static constexpr std::string_view skippedVersionKey = "updates.skippedVersion";
    /// @}

    /// Seconds from the start to the first look: nobody who has just logged in waits for it.
    static constexpr double firstDelay = 60;
    /// Seconds between two glances at the clock. A timer of a day would sleep on with the machine.
    static constexpr double glanceInterval = 3600;

    /// `currentVersion` is that of this program.
    FeedUpdaterController(const Needs& needs, UpdateSource source, std::string currentVersion);
    ~FeedUpdaterController() override;
    FeedUpdaterController(const FeedUpdaterController&) = delete;
    FeedUpdaterController& operator=(const FeedUpdaterController&) = delete;

    void start() override;
    void checkForUpdates() override;

private:
    void glance();
    bool isDue() const;
    void load();
    void finish(const UpdateFeedResult& result);
    void remember(const UpdateFeedResult& result);
    void tell(const UpdateFeedResult& result, UpdateOccasion occasion);
    bool isSkipped(const UpdateItem& item) const;
    void show(UpdateStatus status, UpdateOccasion occasion);
    void obey(UpdateAnswer answer);

    Needs needs_;
    UpdateSource source_;
    std::string currentVersion_;
    Token timer_;
    Token loading_;
    Date loadingBegan_ = 0;
    UpdateOccasion occasion_ = UpdateOccasion::unasked; ///< Of what is being loaded.
    std::optional<UpdateStatus> shown_;
};

} // namespace tessel
