#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "Options.h"

namespace tessel::owners {

/// The words of the command line make no sense.
class UsageError : public std::invalid_argument {
public:
    using std::invalid_argument::invalid_argument;
};

/// What the caller wants: a name (of an owner, a requestor or a command) and the options behind it.
struct CommandLine {
    std::string name;
    Options options;
};

/// Throws `UsageError`.
CommandLine parseCommandLine(const std::vector<std::string>& words);

} // namespace tessel::owners
