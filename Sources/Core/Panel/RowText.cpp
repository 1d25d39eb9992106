#include "Panel/RowText.h"

#include <algorithm>

namespace tessel {

namespace {

/// The longest prefix of at most `limit` bytes that does not split a UTF-8 sequence.
std::string_view boundedPrefix(std::string_view text, std::size_t limit)
{
    if (text.size() <= limit)
        return text;
    const auto isContinuation = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
    std::size_t end = limit;
    while (end > 0 && isContinuation(text[end]))
        --end;
    return text.substr(0, end);
}

} // namespace

std::string rowTitle(const ClipboardItem& item)
{
    const auto* text = std::get_if<SharedText>(&item.content);
    if (!text)
        return "Image";
    std::string title(boundedPrefix(**text, rowTitleLimit));
    std::replace(title.begin(), title.end(), '\n', ' ');
    return title;
}

std::string_view kindLabel(const ClipboardItem& item)
{
    return item.isImage() ? "Image" : "Text";
}

} // namespace tessel
