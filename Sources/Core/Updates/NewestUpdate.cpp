#include "Updates/NewestUpdate.h"

#include "Updates/VersionOrder.h"

namespace tessel {

const UpdateItem* newestUpdate(const std::vector<UpdateItem>& items, std::string_view currentVersion,
                               std::string_view systemVersion)
{
    const UpdateItem* newest = nullptr;
    for (const UpdateItem& item : items) {
        const bool isForThisSystem = compareVersions(item.minimumSystemVersion, systemVersion) <= 0;
        const std::string_view best = newest != nullptr ? newest->version : currentVersion;
        if (item.channel.empty() && isForThisSystem && compareVersions(item.version, best) > 0)
            newest = &item;
    }
    return newest;
}

} // namespace tessel
