#pragma once

#include <functional>
#include <stdexcept>
#include <utility>

#include "UpdateFeed.h"

namespace tessel::test {

/// A feed that answers when a test says so.
class FakeUpdateFeed final : public UpdateFeed {
public:
    /// How often somebody has begun to load it.
    int loads = 0;

    bool isLoading() const { return static_cast<bool>(done_); }
    /// Ends the loading that is under way.
    void answer(const UpdateFeedResult& result)
    {
        if (!isLoading())
            throw std::logic_error("Nobody is loading the feed.");
        const auto done = std::exchange(done_, nullptr);
        done(result);
    }

    Token load(std::function<void(UpdateFeedResult)> done) override
    {
        if (isLoading())
            throw std::logic_error("The feed is being loaded already.");
        ++loads;
        done_ = std::move(done);
        return Token([this] { done_ = nullptr; });
    }

private:
    std::function<void(UpdateFeedResult)> done_;
};

} // namespace tessel::test
