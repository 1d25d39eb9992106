#include "RequestorCatalogue.h"

namespace tessel::owners {

const std::vector<RequestorGroup>& requestorGroups()
{
    static const std::vector<RequestorGroup> groups = {
        {"Requestors that paste", pastingRequestors()},
        {"Requestors that ask about the value", askingRequestors()},
        {"Requestors of several targets at once", multipleRequestors()},
        {"Requestors that misbehave", hostileRequestors()},
        {"Requestors that take the selection themselves", ownershipRequestors()},
    };
    return groups;
}

} // namespace tessel::owners
