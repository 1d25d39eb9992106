#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tessel::desktop {

/// What a program does with a line of its standard input: its first word and the rest.
using ObeyLine = std::function<std::string(std::string_view word, std::string_view rest)>;

/// Calls `obey` on the main loop for every line of the standard input, and prints "ok" and what it returned.
/// Calls `inputDidEnd`, which has to end the main loop, with the input.
void followCommandLines(ObeyLine obey, void (*inputDidEnd)());

/// Prints a line at once.
void say(const std::string& line);

} // namespace tessel::desktop
