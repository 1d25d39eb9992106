#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Property.h"

namespace tessel::owners {

/// What is wrong with the value that was sent for a target: its type, its format or, where the target says
/// how its bytes look, its bytes. None: nothing that can be seen.
std::optional<std::string> complaintAbout(const std::string& target, const std::string& type,
                                          const Property& value);

/// Whether it is UTF-8 without overlong forms, surrogates and truncated characters.
bool isUtf8(std::string_view bytes);

} // namespace tessel::owners
