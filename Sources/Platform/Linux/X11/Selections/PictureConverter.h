#pragma once

#include <string_view>

#include "X11/Selections/PictureRows.h"
#include "X11/Selections/SelectionValue.h"

namespace tessel {

/// Converts the picture of a value into the form `mimeType`, for a requestor that wants another one than it
/// came in. What has no transparency in the new form gets a white ground. Null: it cannot be converted, or
/// `breath` has stopped the work.
SharedBytes convertPicture(const SelectionValue& value, std::string_view mimeType, const Breath& breath);

} // namespace tessel
