#include "Support/UUID.h"

#include <random>

namespace tessel {

UUID UUID::random()
{
    std::random_device device;
    const auto word = [&device] { return (std::uint64_t{device()} << 32U) | device(); };

    constexpr std::uint64_t versionMask = 0xF000;
    constexpr std::uint64_t version4 = 0x4000;
    constexpr std::uint64_t variantMask = 0xC000'0000'0000'0000;
    constexpr std::uint64_t variant = 0x8000'0000'0000'0000;
    const std::uint64_t high = (word() & ~versionMask) | version4;
    const std::uint64_t low = (word() & ~variantMask) | variant;
    return UUID({high, low});
}

} // namespace tessel
