#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "Application.h"
#include "Fakes/CallLog.h"

namespace tessel::test {

/// This application as the system sees it. Activation is granted by the test, through `setActive`.
class FakeApplication final : public Application {
public:
    explicit FakeApplication(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    void setActive(bool isActive)
    {
        if (isActive == isActive_)
            return;
        isActive_ = isActive;
        const auto observers = *observers_; // An observer may stop observing while it runs.
        for (const auto& [number, didChange] : observers)
            didChange();
    }

    void activate(IgnoringOtherApps ignoring) override
    {
        log_->effect(ignoring == IgnoringOtherApps::yes ? "application.activate ignoring others"
                                                        : "application.activate");
    }
    void terminate() override { log_->effect("application.terminate"); }
    bool isActive() const override { return isActive_; }
    Token observeActivity(std::function<void()> didChange) override
    {
        const int number = nextNumber_++;
        observers_->emplace(number, std::move(didChange));
        return Token([weak = std::weak_ptr(observers_), number] {
            if (const auto observers = weak.lock())
                observers->erase(number);
        });
    }

private:
    std::shared_ptr<CallLog> log_;
    bool isActive_ = false;
    int nextNumber_ = 0;
    std::shared_ptr<std::map<int, std::function<void()>>> observers_ =
        std::make_shared<std::map<int, std::function<void()>>>();
};

} // namespace tessel::test
