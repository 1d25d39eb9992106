#pragma once

#include <string_view>

namespace tessel {

/// Stops the process: a rule was given a value that cannot occur. `reason` goes to the standard error and
/// never contains anything that the user copied.
[[noreturn]] void fatalError(std::string_view reason);

} // namespace tessel
