#pragma once

#include <string>
#include <variant>

#include "Digest.h"
#include "History/ClipboardContent.h"

namespace tessel {

/// The content identity of an entry. It means the same as the fingerprint text, of which it is a cheaper
/// form: two identities are equal exactly when their fingerprint texts are, but neither holding nor comparing
/// them copies a text.
class ContentIdentity {
public:
    /// `digest` is used only for an image that was not prepared.
    ContentIdentity(const ClipboardContent& content, const Digest& digest);

    /// "text:" and the text, or "image:" and either 64 lowercase hexadecimal digits or width, "x" and height.
    std::string fingerprint() const;

    friend bool operator==(const ContentIdentity& left, const ContentIdentity& right);

private:
    /// The text itself, or the fingerprint of the image.
    std::variant<SharedText, std::string> value_;
};

} // namespace tessel
