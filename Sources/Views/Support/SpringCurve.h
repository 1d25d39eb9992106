#pragma once

namespace tessel {

/// The movement of a damped spring from 0 to 1, let go at rest.
class SpringCurve {
public:
    /// `response`: seconds that an undamped spring of this stiffness takes to swing once. `dampingFraction`:
    /// the damping as a part of that at which it no longer swings, above 0 and below 1.
    SpringCurve(double response, double dampingFraction);

    /// Where it is, `seconds` after it was let go; a little beyond 1 at times.
    double at(double seconds) const;
    /// Seconds after which it stays within a thousandth of its end.
    double settlingTime() const;

private:
    double decay_;     ///< Of its swings, in 1 per second.
    double frequency_; ///< Of its swings, in radians per second.
};

} // namespace tessel
