#pragma once

#include <variant>

#include "PlatformImage.h"
#include "SharedText.h"

namespace tessel {

/// One captured pasteboard value: `text` (the full text, never null, not trimmed or shortened) or `image`
/// (never null, shared by reference). Has no equality of its own: contents are compared through
/// `ContentIdentity`.
using ClipboardContent = std::variant<SharedText, SharedImage>;

} // namespace tessel
