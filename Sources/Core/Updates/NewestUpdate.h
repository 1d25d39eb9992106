#pragma once

#include <string_view>
#include <vector>

#include "UpdateItem.h"

namespace tessel {

/// The newest of the items that is newer than `currentVersion` and runs on a system of `systemVersion`; the
/// first of equal ones. Null: there is none. Items of a channel are for nobody here.
const UpdateItem* newestUpdate(const std::vector<UpdateItem>& items, std::string_view currentVersion,
                               std::string_view systemVersion);

} // namespace tessel
