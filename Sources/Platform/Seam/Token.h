#pragma once

#include <functional>
#include <utility>

namespace tessel {

/// Ownership of something that goes on until it is told to stop: an observation, a timer, a subscription.
/// Dropping the token stops it. An empty token stops nothing.
class [[nodiscard]] Token {
public:
    Token() = default;
    /// `stop` runs exactly once, when the token is dropped or replaced. It must not throw.
    explicit Token(std::function<void()> stop)
        : stop_(std::move(stop))
    {}
    Token(Token&& other) noexcept
        : stop_(std::exchange(other.stop_, nullptr))
    {}
    Token& operator=(Token&& other) noexcept
    {
        if (this != &other) {
            reset();
            stop_ = std::exchange(other.stop_, nullptr);
        }
        return *this;
    }
    ~Token() { reset(); }

    void reset()
    {
        if (auto stop = std::exchange(stop_, nullptr))
            stop();
    }
    explicit operator bool() const { return static_cast<bool>(stop_); }

private:
    std::function<void()> stop_;
};

} // namespace tessel
