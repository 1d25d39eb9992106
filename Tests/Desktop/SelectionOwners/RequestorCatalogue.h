#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Conduct.h"
#include "Observation.h"
#include "Options.h"

namespace tessel::owners {

/// One requestor that the caller can name.
struct NamedRequestor {
    std::string_view name;
    Conduct conduct;
    std::string_view section;     ///< Of the ICCCM: what it obeys or breaks itself.
    std::string_view tested;      ///< The section that it puts the owner to the test with.
    std::string_view description; ///< What it does.
    std::string_view expectation; ///< What a robust owner does.
    Observation (*run)(const Options& options);
    /// Whether it is part of `check`: it asks the present owner, and changes nothing.
    bool isPartOfCheck = true;
};

/// The requestors of one kind.
struct RequestorGroup {
    std::string_view title;
    const std::vector<NamedRequestor>& entries;
};

/// In the order in which they are listed and, where they are part of it, checked.
const std::vector<RequestorGroup>& requestorGroups();

// One file each.
const std::vector<NamedRequestor>& pastingRequestors();
const std::vector<NamedRequestor>& askingRequestors();
const std::vector<NamedRequestor>& multipleRequestors();
const std::vector<NamedRequestor>& hostileRequestors();
const std::vector<NamedRequestor>& ownershipRequestors();

} // namespace tessel::owners
