#pragma once

#include "LoginItem.h"

namespace tessel {

/// `SMAppService.mainApp`. Errors are dropped: the status tells what came of it.
class ServiceManagementLoginItem final : public LoginItem {
public:
    LoginItemStatus status() const override;
    bool registerItem() override;
    bool unregisterItem() override;
};

} // namespace tessel
