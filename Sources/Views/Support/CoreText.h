#pragma once

#include <string_view>

class QString;

namespace tessel {

/// A text of the rules in the user's language. They decide which text, and have it in English; it stays so
/// where there is no translation.
QString coreText(std::string_view english);

} // namespace tessel
