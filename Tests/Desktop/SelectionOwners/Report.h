#pragma once

#include <iosfwd>

#include "Observation.h"
#include "RequestorCatalogue.h"

namespace tessel::owners {

/// One line: "ok" or "FAIL", the name, the section, and what was seen.
void report(std::ostream& output, const NamedRequestor& requestor, const Observation& observation);

/// Every name with what it does.
void list(std::ostream& output);
/// The same as tables in Markdown, with what is expected of the other side.
void listAsMarkdown(std::ostream& output);

} // namespace tessel::owners
