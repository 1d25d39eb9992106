#pragma once

#include <optional>

namespace tessel {

/// The way of a scroll position to a target that may move on meanwhile: fast at first, then gently.
class ScrollAnimation {
public:
    /// Where the movement ends. None: there is no movement.
    std::optional<double> target() const { return target_; }
    void moveTo(double target) { target_ = target; }
    void stop() { target_.reset(); }
    /// The position `seconds` later. Ends the movement where less than a point is left.
    double advanced(double position, double seconds);

private:
    std::optional<double> target_;
};

} // namespace tessel
