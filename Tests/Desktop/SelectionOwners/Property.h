#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace tessel::owners {

/// The value of a window's property. Bytes are as XCB has them: items of 16 and 32 bits in this machine's
/// order.
struct Property {
    xcb_atom_t type = XCB_NONE; ///< None: there is no such property.
    int format = 0;             ///< Bits to an item.
    std::string bytes;

    bool exists() const { return type != XCB_NONE; }
    std::size_t itemCount() const
    {
        return format == 0 ? 0 : bytes.size() * 8 / static_cast<std::size_t>(format);
    }
    /// The items of a property of 32 bits; empty for every other format.
    std::vector<std::uint32_t> items() const
    {
        std::vector<std::uint32_t> values(format == 32 ? itemCount() : 0);
        if (!values.empty())
            std::memcpy(values.data(), bytes.data(), values.size() * sizeof(std::uint32_t));
        return values;
    }
};

} // namespace tessel::owners
