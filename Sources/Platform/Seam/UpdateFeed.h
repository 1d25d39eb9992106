#pragma once

#include <functional>
#include <variant>
#include <vector>

#include "Token.h"
#include "UpdateItem.h"

namespace tessel {

/// Why a feed could not be had.
enum class UpdateFeedFailure {
    offline,            ///< Its server cannot be reached.
    insecureConnection, ///< Its server is not who it says it is, or leads away from encrypted addresses.
    noFeed,             ///< Its server does not have it.
    serverTrouble,      ///< Its server cannot answer now.
    timedOut,
    tooLarge,
    notTrusted,    ///< It is not signed with the key that its publisher has.
    damaged,       ///< It is signed, and is no feed.
    misconfigured, ///< Where it is, or its key, is not said in a way that can be understood.
    incomplete,    ///< A part of the program that is needed to load it is missing, or does not work.
};

using UpdateFeedResult = std::variant<std::vector<UpdateItem>, UpdateFeedFailure>;

/// A list of the application's versions that somebody publishes.
class UpdateFeed {
public:
    virtual ~UpdateFeed() = default;

    /// Loads the list anew. `done` runs once, on a later turn of the main loop, and may drop the token. When
    /// that is dropped before, loading ends and `done` does not run.
    virtual Token load(std::function<void(UpdateFeedResult)> done) = 0;
};

} // namespace tessel
