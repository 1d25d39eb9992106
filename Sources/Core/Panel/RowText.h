#pragma once

#include <string>
#include <string_view>

#include "History/ClipboardItem.h"

namespace tessel {

/// The longest title that `rowTitle` returns, in bytes: far more than two lines of a row can show.
inline constexpr std::size_t rowTitleLimit = 2048;

/// The title of an entry's row: a text with every line feed replaced by one space, cut to a bounded prefix
/// without splitting a UTF-8 sequence; "Image" for an image.
std::string rowTitle(const ClipboardItem& item);

/// "Text" or "Image".
std::string_view kindLabel(const ClipboardItem& item);

} // namespace tessel
