#pragma once

#include <memory>
#include <string>

namespace tessel::owners {

/// One target with what is sent for it.
struct Offer {
    std::string target;
    std::string type; ///< As written into the property; a liar's differs from the target.
    int format = 8;   ///< 8, 16 or 32 bits to an item.
    /// Shared with the transfers that are under way when the value changes.
    std::shared_ptr<const std::string> bytes;
};

inline Offer offer(const std::string& target, std::string bytes)
{
    return {target, target, 8, std::make_shared<const std::string>(std::move(bytes))};
}

} // namespace tessel::owners
