#pragma once

#include <memory>
#include <string>

namespace tessel {

/// One immutable UTF-8 text, shared from the wire to the paste without being copied. Null means that there is
/// none.
using SharedText = std::shared_ptr<const std::string>;

} // namespace tessel
