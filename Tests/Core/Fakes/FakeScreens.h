#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "Fakes/CallLog.h"
#include "Screens.h"

namespace tessel::test {

/// Screens and a pointer where the test puts them.
class FakeScreens final : public Screens {
public:
    explicit FakeScreens(std::shared_ptr<CallLog> log)
        : log_(std::move(log))
    {}

    std::vector<Screen> all;
    /// None: there is no screen.
    std::optional<Screen> main;
    Point pointer;
    /// Runs after the pointer's location has been read, for instance to move the pointer. May be empty.
    std::function<void()> afterMouseLocation;

    std::vector<Screen> screens() const override
    {
        log_->read("screens.screens");
        return all;
    }
    std::optional<Screen> mainScreen() const override
    {
        log_->read("screens.mainScreen");
        return main;
    }
    Point mouseLocation() const override
    {
        log_->read("screens.mouseLocation");
        const Point location = pointer;
        if (afterMouseLocation)
            afterMouseLocation();
        return location;
    }

private:
    std::shared_ptr<CallLog> log_;
};

} // namespace tessel::test
