#pragma once

#include <QtCore/QByteArray>

#include <optional>
#include <variant>

#include "UpdateFeed.h"

namespace tessel {

/// The bytes that were loaded, or why there are none.
using DownloadResult = std::variant<QByteArray, UpdateFeedFailure>;

/// @name How `tessel-clipboard-download` tells a failure by its exit status
/// @{
inline constexpr int firstFailureStatus = 10;

constexpr int exitStatusOf(UpdateFeedFailure failure)
{
    return firstFailureStatus + static_cast<int>(failure);
}

/// None: it is the exit status of no failure.
constexpr std::optional<UpdateFeedFailure> failureOf(int exitStatus)
{
    const int last = exitStatusOf(UpdateFeedFailure::incomplete);
    if (exitStatus < firstFailureStatus || exitStatus > last)
        return std::nullopt;
    return static_cast<UpdateFeedFailure>(exitStatus - firstFailureStatus);
}
/// @}

} // namespace tessel
