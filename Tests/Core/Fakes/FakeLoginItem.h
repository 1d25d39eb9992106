#pragma once

#include <memory>
#include <utility>

#include "Fakes/CallLog.h"
#include "LoginItem.h"

namespace tessel::test {

/// What the system does with a request to change the login item.
enum class LoginItemBehaviour {
    obeys,
    refuses,
    waitsForApproval, ///< Refuses, and leaves the item waiting for the user.
    obeysButReportsFailure,
};

class FakeLoginItem final : public LoginItem {
public:
    explicit FakeLoginItem(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    LoginItemStatus current = LoginItemStatus::notRegistered;
    LoginItemBehaviour behaviour = LoginItemBehaviour::obeys;

    LoginItemStatus status() const override
    {
        log_->read("loginItem.status");
        return current;
    }
    bool registerItem() override
    {
        log_->effect("loginItem.register");
        return change(LoginItemStatus::enabled);
    }
    bool unregisterItem() override
    {
        log_->effect("loginItem.unregister");
        return change(LoginItemStatus::notRegistered);
    }

private:
    bool change(LoginItemStatus wanted)
    {
        if (behaviour == LoginItemBehaviour::waitsForApproval)
            current = LoginItemStatus::requiresApproval;
        const bool obeys = behaviour == LoginItemBehaviour::obeys;
        if (obeys || behaviour == LoginItemBehaviour::obeysButReportsFailure)
            current = wanted;
        return obeys;
    }

    std::shared_ptr<CallLog> log_;
};

} // namespace tessel::test
