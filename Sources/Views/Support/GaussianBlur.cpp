#include "Support/GaussianBlur.h"

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

constexpr double visibleDeviations = 3;

/// Weights of the distances 0, 1, 2, ... from the middle.
std::vector<float> gaussianWeights(double deviation)
{
    std::vector<double> weights;
    double sum = 0;
    for (int distance = 0; distance <= blurReach(deviation); ++distance) {
        weights.push_back(std::exp(-distance * distance / (2 * deviation * deviation)));
        sum += distance == 0 ? weights.back() : 2 * weights.back();
    }
    std::vector<float> shares;
    for (const double weight : weights)
        shares.push_back(static_cast<float>(weight / sum));
    return shares;
}

void addWeighted(float* sum, const float* one, const float* other, float weight, int count)
{
    for (int x = 0; x < count; ++x)
        sum[x] += weight * (one[x] + other[x]);
}

/// The middle one counts once and not twice.
float weightAt(const std::vector<float>& weights, int distance)
{
    return distance == 0 ? weights[0] / 2 : weights[static_cast<std::size_t>(distance)];
}

Plane blurredAcross(const Plane& plane, const std::vector<float>& weights, BeyondEdges beyond)
{
    const int reach = static_cast<int>(weights.size()) - 1;
    Plane result{plane.width, plane.height, std::vector<float>(plane.values.size())};
    std::vector<float> line(static_cast<std::size_t>(plane.width + 2 * reach));
    for (int y = 0; y < plane.height; ++y) {
        const float* row = plane.row(y);
        const float* middle = line.data() + reach;
        std::copy(row, row + plane.width, line.begin() + reach);
        if (beyond == BeyondEdges::continued) {
            std::fill(line.begin(), line.begin() + reach, row[0]);
            std::fill(line.end() - reach, line.end(), row[plane.width - 1]);
        }
        for (int distance = 0; distance <= reach; ++distance)
            addWeighted(result.row(y), middle - distance, middle + distance, weightAt(weights, distance),
                        plane.width);
    }
    return result;
}

Plane blurredDown(const Plane& plane, const std::vector<float>& weights, BeyondEdges beyond)
{
    const int reach = static_cast<int>(weights.size()) - 1;
    Plane result{plane.width, plane.height, std::vector<float>(plane.values.size())};
    const std::vector<float> nothing(static_cast<std::size_t>(plane.width));
    const auto rowAt = [&](int y) {
        const bool isInside = y >= 0 && y < plane.height;
        if (!isInside && beyond == BeyondEdges::nothing)
            return nothing.data();
        return plane.row(std::clamp(y, 0, plane.height - 1));
    };
    for (int y = 0; y < plane.height; ++y) {
        for (int distance = 0; distance <= reach; ++distance)
            addWeighted(result.row(y), rowAt(y - distance), rowAt(y + distance), weightAt(weights, distance),
                        plane.width);
    }
    return result;
}

} // namespace

int blurReach(double standardDeviation)
{
    return static_cast<int>(std::ceil(standardDeviation * visibleDeviations));
}

Plane blurred(const Plane& plane, double standardDeviation, BeyondEdges beyond)
{
    if (plane.values.empty())
        return plane;
    const auto weights = gaussianWeights(standardDeviation);
    return blurredDown(blurredAcross(plane, weights, beyond), weights, beyond);
}

} // namespace tessel
