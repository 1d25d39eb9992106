#pragma once

#include <string>

#include "Clock.h"
#include "Digest.h"
#include "History/ClipboardContent.h"
#include "History/ContentIdentity.h"
#include "Support/UUID.h"

namespace tessel {

/// One entry of the clipboard history: a captured value with an identity and a capture time. Two entries are
/// the same entry when their ids are equal, and have the same content when their fingerprints are.
struct ClipboardItem {
    UUID id;
    ClipboardContent content;
    Date date; ///< When the value was read from the pasteboard.

    bool isImage() const { return std::holds_alternative<SharedImage>(content); }

    /// The content identity as text, built on every call.
    std::string fingerprint(const Digest& digest) const { return identity(digest).fingerprint(); }
    /// The same, for comparing: it copies no text.
    ContentIdentity identity(const Digest& digest) const { return {content, digest}; }
};

} // namespace tessel
