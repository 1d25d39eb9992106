#pragma once

#include "UpdateFeed.h"

namespace tessel {

/// Stands for a feed whose configuration cannot be understood.
class MisconfiguredUpdateFeed final : public UpdateFeed {
public:
    Token load(std::function<void(UpdateFeedResult)> done) override;
};

} // namespace tessel
