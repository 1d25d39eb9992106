#include "Fakes/FakeWindowController.h"

#include <gtest/gtest.h>

namespace tessel::test {

FakeWindowController::FakeWindowController(std::shared_ptr<CallLog> log, std::string name)
    : log_(std::move(log))
    , name_(std::move(name))
{}

FakeWindowController::~FakeWindowController()
{
    log_->effect(name_ + ".drop");
}

void FakeWindowController::loseWindow()
{
    hasWindow_ = false;
    isVisible_ = false;
}

void FakeWindowController::showWindow()
{
    log_->effect(name_ + ".showWindow");
    EXPECT_FALSE(isClosed_) << "A closed window was shown: " << name_;
    isVisible_ = hasWindow_;
}

void FakeWindowController::close()
{
    log_->effect(name_ + ".close");
    EXPECT_FALSE(isClosed_) << "A window was closed twice: " << name_;
    isClosed_ = true;
    isVisible_ = false;
}

} // namespace tessel::test
