#pragma once

#include <chrono>
#include <stdexcept>

namespace tessel::desktop {

/// The moment until which a wait may last. Every wait in this fixture has one.
class Deadline {
public:
    /// The usual patience: far beyond what anything takes here, even on a slow and loaded machine under
    /// sanitizers. Only what has gone wrong takes that long.
    static constexpr std::chrono::milliseconds usualPatience{60'000};

    explicit Deadline(std::chrono::milliseconds patience = usualPatience)
        : moment_(std::chrono::steady_clock::now() + patience)
    {}

    bool hasPassed() const { return std::chrono::steady_clock::now() >= moment_; }
    std::chrono::steady_clock::time_point moment() const { return moment_; }

    /// What is left, rounded up to whole milliseconds; zero once it has passed.
    std::chrono::milliseconds remaining() const
    {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(moment_ - std::chrono::steady_clock::now());
        return std::max(left, std::chrono::milliseconds{0});
    }

private:
    std::chrono::steady_clock::time_point moment_;
};

/// Something of the desktop is not as it has to be: a wait that ended without what it waited for, or a
/// program that could not be started. The text says which. Test frameworks report it as the failure of the
/// test.
class DesktopFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace tessel::desktop
