#include "OwnerCatalogue.h"

namespace tessel::owners {

const std::vector<OwnerGroup>& ownerGroups()
{
    static const std::vector<OwnerGroup> groups = {
        {"Good owners", goodOwners()},
        {"Forms of text and pictures", textFormOwners()},
        {"Owners that are silent, slow or die", silentOwners()},
        {"Incremental transfers", incrementOwners()},
        {"Owners that lie", lyingOwners()},
        {"Required targets", requiredTargetOwners()},
        {"Owners that come and go", restlessOwners()},
    };
    return groups;
}

} // namespace tessel::owners
