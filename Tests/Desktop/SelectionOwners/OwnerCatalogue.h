#pragma once

#include <string_view>
#include <vector>

#include "Behaviour.h"
#include "Conduct.h"
#include "Options.h"

namespace tessel::owners {

/// One owner that the caller can name.
struct NamedOwner {
    std::string_view name;
    Conduct conduct;
    std::string_view section;     ///< Of the ICCCM.
    std::string_view description; ///< What it does.
    std::string_view expectation; ///< What a robust program does.
    Behaviour (*make)(const Options& options);
};

/// The owners of one kind.
struct OwnerGroup {
    std::string_view title;
    const std::vector<NamedOwner>& entries;
};

/// In the order in which they are listed.
const std::vector<OwnerGroup>& ownerGroups();

// One file each.
const std::vector<NamedOwner>& goodOwners();
const std::vector<NamedOwner>& textFormOwners();
const std::vector<NamedOwner>& silentOwners();
const std::vector<NamedOwner>& incrementOwners();
const std::vector<NamedOwner>& lyingOwners();
const std::vector<NamedOwner>& requiredTargetOwners();
const std::vector<NamedOwner>& restlessOwners();

} // namespace tessel::owners
