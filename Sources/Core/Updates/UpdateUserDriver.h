#pragma once

#include <functional>
#include <string>
#include <variant>

#include "UpdateFeed.h"

namespace tessel {

/// Somebody is waiting for an answer of the feed.
struct UpdateIsSought {};
/// The program is the newest there is.
struct ProgramIsUpToDate {
    std::string currentVersion;
};
/// There is a version that the user may want.
struct UpdateIsFound {
    UpdateItem item;            ///< The newest one that runs on this system.
    std::string currentVersion; ///< That of this program.
};
/// Nobody has named a feed: the system's packages bring updates.
struct PackagesBringUpdates {};

/// What a user is told of updates.
using UpdateStatus =
    std::variant<UpdateIsSought, ProgramIsUpToDate, UpdateIsFound, PackagesBringUpdates, UpdateFeedFailure>;

enum class UpdateAnswer {
    dismiss, ///< The user has read it, does not want to wait, or wants to be reminded later.
    skip,    ///< Of `UpdateIsFound`: this version is of no interest.
    openDownloadPage,
};

/// Whether the user has asked for what is shown. What nobody has asked for takes no keyboard focus.
enum class UpdateOccasion { asked, unasked };

/// Shows the user the state of a look for updates (`SPUUserDriver`), in one place.
class UpdateUserDriver {
public:
    virtual ~UpdateUserDriver() = default;

    /// Shows this in place of what was shown. `answer` runs at most once, and never once something else is
    /// shown or `close` has been called.
    virtual void show(const UpdateStatus& status, UpdateOccasion occasion,
                      std::function<void(UpdateAnswer)> answer) = 0;
    /// Brings what is shown to the user's attention.
    virtual void bringForward() = 0;
    /// Shows nothing any more; without effect where nothing is shown. No answer comes after it.
    virtual void close() = 0;
};

} // namespace tessel
