#include "Updates/MisconfiguredUpdateFeed.h"

#include <QtCore/QTimer>

#include <memory>
#include <utility>

namespace tessel {

Token MisconfiguredUpdateFeed::load(std::function<void(UpdateFeedResult)> done)
{
    const auto answer = std::make_shared<QTimer>();
    answer->setSingleShot(true);
    answer->callOnTimeout([done = std::move(done)] { done(UpdateFeedFailure::misconfigured); });
    answer->start(0);
    return Token([answer] { answer->stop(); });
}

} // namespace tessel
