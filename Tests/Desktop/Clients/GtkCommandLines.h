#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tessel::desktop {

/// Calls `obey` on the main loop with the first word and the rest of every line of the standard input, and
/// prints "ok" and what it returned. Ends the main loop with the input.
void followCommandLines(std::function<std::string(std::string_view word, std::string_view rest)> obey);

/// Prints a line at once.
void say(const std::string& line);

} // namespace tessel::desktop
