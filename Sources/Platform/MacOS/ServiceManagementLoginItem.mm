#import "ServiceManagementLoginItem.h"

#import <ServiceManagement/ServiceManagement.h>

namespace tessel {

LoginItemStatus ServiceManagementLoginItem::status() const
{
    switch (SMAppService.mainAppService.status) {
    case SMAppServiceStatusNotRegistered:
        return LoginItemStatus::notRegistered;
    case SMAppServiceStatusEnabled:
        return LoginItemStatus::enabled;
    case SMAppServiceStatusRequiresApproval:
        return LoginItemStatus::requiresApproval;
    case SMAppServiceStatusNotFound:
        break;
    }
    return LoginItemStatus::notFound;
}

bool ServiceManagementLoginItem::registerItem()
{
    return [SMAppService.mainAppService registerAndReturnError:nil];
}

bool ServiceManagementLoginItem::unregisterItem()
{
    return [SMAppService.mainAppService unregisterAndReturnError:nil];
}

} // namespace tessel
