#pragma once

namespace tessel {

/// What is added to a level before its fraction is dropped, 0 to 1 without either: Bayer's 8 x 8 matrix. Slow
/// transitions have no steps then.
inline float orderedDither(int x, int y)
{
    constexpr int bits = 3;
    constexpr float count = 64;
    const int differing = x ^ y;
    int rank = 0;
    for (int bit = 0; bit < bits; ++bit)
        rank = rank << 2 | (differing >> bit & 1) << 1 | (y >> bit & 1);
    return (static_cast<float>(rank) + 0.5F) / count;
}

} // namespace tessel
