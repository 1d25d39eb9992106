#pragma once

namespace tessel {

/// `SMAppServiceStatus`. Only `enabled` counts as on.
enum class LoginItemStatus { notRegistered, enabled, requiresApproval, notFound };

/// The login item of the application itself (`SMAppService.mainApp`; an XDG autostart entry).
class LoginItem {
public:
    virtual ~LoginItem() = default;

    virtual LoginItemStatus status() const = 0;
    /// False: the system refused.
    virtual bool registerItem() = 0;
    /// False: the system refused.
    virtual bool unregisterItem() = 0;
};

} // namespace tessel
