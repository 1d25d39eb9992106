#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace tessel {

/// A random 128-bit identity (RFC 9562, version 4).
class UUID {
public:
    /// A fresh one.
    static UUID random();

    friend bool operator==(const UUID&, const UUID&) = default;

private:
    friend struct std::hash<UUID>;

    explicit UUID(const std::array<std::uint64_t, 2>& words)
        : words_(words)
    {}

    std::array<std::uint64_t, 2> words_;
};

} // namespace tessel

template <>
struct std::hash<tessel::UUID> {
    std::size_t operator()(const tessel::UUID& uuid) const noexcept
    {
        return static_cast<std::size_t>(uuid.words_[0] ^ uuid.words_[1]);
    }
};
