#pragma once

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace tessel {

/// Choices that follow from one number.
class SeededRandom {
public:
    explicit SeededRandom(std::uint64_t seed)
        : random_(seed)
    {}
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(random_() % bound); }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    std::uint32_t number() { return static_cast<std::uint32_t>(random_()); }
    char byte() { return static_cast<char>(random_()); }
    std::string bytes(std::size_t count)
    {
        std::string bytes(count, '\0');
        for (char& each : bytes)
            each = byte();
        return bytes;
    }
    template <class Choices>
    auto oneOf(const Choices& choices)
    {
        return *(std::begin(choices) + static_cast<std::ptrdiff_t>(below(std::size(choices))));
    }

private:
    std::mt19937_64 random_;
};

/// Runs `body` with each seed from 1 on. TESSEL_RUNS says how many seeds are tried; TESSEL_SEED repeats the
/// one run of that seed. Ends with the first run that fails.
inline void forEachSeed(std::uint64_t defaultRuns, const std::function<void(std::uint64_t seed)>& body)
{
    const auto fromEnvironment = [](const char* name) -> std::optional<std::uint64_t> {
        const char* text = std::getenv(name);
        return text ? std::optional<std::uint64_t>(std::strtoull(text, nullptr, 10)) : std::nullopt;
    };
    const auto onlySeed = fromEnvironment("TESSEL_SEED");
    const std::uint64_t first = onlySeed.value_or(1);
    const std::uint64_t last = onlySeed ? *onlySeed : fromEnvironment("TESSEL_RUNS").value_or(defaultRuns);
    for (std::uint64_t seed = first; seed <= last && !::testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("Replay with TESSEL_SEED=" + std::to_string(seed));
        body(seed);
    }
}

} // namespace tessel
