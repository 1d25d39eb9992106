#pragma once

#include <iosfwd>

#include "Options.h"

namespace tessel::owners {

/// Runs all requestors that are part of it against the present owner, and writes a line about each. Whether
/// the owner passed all of them. Throws `NothingThere` when there is no owner to begin with.
bool check(Options options, std::ostream& output);

} // namespace tessel::owners
