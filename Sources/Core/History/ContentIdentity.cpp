#include "History/ContentIdentity.h"

#include <string_view>

#include "DistinctText.h"
#include "History/ImageFingerprint.h"

namespace tessel {

namespace {

constexpr std::string_view textPrefix = "text:";

std::string fingerprintOf(const PlatformImage& image, const Digest& digest)
{
    if (const auto& prepared = image.preparedFingerprint())
        return *prepared;
    return imageFingerprint(image, digest);
}

} // namespace

ContentIdentity::ContentIdentity(const ClipboardContent& content, const Digest& digest)
{
    if (const auto* text = std::get_if<SharedText>(&content))
        value_ = *text;
    else
        value_ = fingerprintOf(*std::get<SharedImage>(content), digest);
}

std::string ContentIdentity::fingerprint() const
{
    if (const auto* text = std::get_if<SharedText>(&value_))
        return std::string(textPrefix).append(**text);
    return std::get<std::string>(value_);
}

bool operator==(const ContentIdentity& left, const ContentIdentity& right)
{
    // The two prefixes differ, so a text never equals an image.
    if (left.value_.index() != right.value_.index())
        return false;
    if (const auto* text = std::get_if<SharedText>(&left.value_))
        return DistinctText::areEqual(*text, std::get<SharedText>(right.value_));
    return std::get<std::string>(left.value_) == std::get<std::string>(right.value_);
}

} // namespace tessel
