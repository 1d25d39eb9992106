#pragma once

#include <vector>

namespace tessel {

/// One channel of a picture, rows from the top.
struct Plane {
    int width = 0;
    int height = 0;
    std::vector<float> values;

    float* row(int y) { return values.data() + offsetOf(y); }
    const float* row(int y) const { return values.data() + offsetOf(y); }

private:
    std::size_t offsetOf(int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }
};

/// What is taken to be beyond the edges of a picture.
enum class BeyondEdges {
    nothing,  ///< Zero.
    continued ///< The same as at the edge.
};

/// How far a Gaussian blur is followed, in pixels; further away is nothing that can be seen.
int blurReach(double standardDeviation);

/// A Gaussian blur, whose standard deviation is in pixels and positive.
Plane blurred(const Plane& plane, double standardDeviation, BeyondEdges beyond);

} // namespace tessel
