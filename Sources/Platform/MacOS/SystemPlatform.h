#pragma once

#include <functional>
#include <string>

#include "Platform.h"

namespace tessel {

/// What the core asks of the system, on macOS. `imageFingerprint` is the rule for the content identity of an
/// image.
Platform makeSystemPlatform(std::function<std::string(const PlatformImage&, const Digest&)> imageFingerprint);

} // namespace tessel
