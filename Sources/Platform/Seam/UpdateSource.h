#pragma once

#include <memory>
#include <optional>
#include <string>

#include "UpdateFeed.h"

namespace tessel {

/// Where updates come from, as the application is installed.
struct UpdateSource {
    /// Null: the system's packages bring them.
    std::shared_ptr<UpdateFeed> feed;
    /// Seconds between two automatic checks; less than an hour counts as an hour. None: there are none.
    std::optional<double> checkInterval;
    /// Of this system, to be compared with `UpdateItem::minimumSystemVersion`.
    std::string systemVersion;
};

} // namespace tessel
