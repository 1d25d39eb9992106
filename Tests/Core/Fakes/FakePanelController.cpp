#include "Fakes/FakePanelController.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace tessel::test {

namespace {

std::string pairText(const char* call, double first, double second)
{
    std::ostringstream text;
    text << call << ' ' << first << ' ' << second;
    return text.str();
}

} // namespace

FakePanelController::FakePanelController(std::shared_ptr<CallLog> log, PanelDescription description)
    : log_(std::move(log))
    , description_(std::move(description))
    , frame_(description_.contentRect)
{}

FakePanelController::~FakePanelController()
{
    log_->effect("panel.drop");
}

void FakePanelController::loseWindow()
{
    hasWindow_ = false;
    isVisible_ = false;
}

void FakePanelController::showWindow()
{
    record("panel.showWindow");
    isVisible_ = hasWindow_;
}

void FakePanelController::close()
{
    record("panel.close");
    isClosed_ = true;
    isVisible_ = false;
}

void FakePanelController::setContentSize(Size size)
{
    EXPECT_TRUE(hasWindow_);
    record(pairText("panel.setContentSize", size.width, size.height));
    frame_.size = size;
}

Rect FakePanelController::frame() const
{
    EXPECT_TRUE(hasWindow_);
    return frame_;
}

void FakePanelController::setFrameOrigin(Point origin)
{
    EXPECT_TRUE(hasWindow_);
    record(pairText("panel.setFrameOrigin", origin.x, origin.y));
    frame_.origin = origin;
    ++placements_;
}

void FakePanelController::makeKeyAndOrderFront()
{
    record("panel.makeKeyAndOrderFront");
    isVisible_ = hasWindow_;
}

void FakePanelController::record(std::string call) const
{
    EXPECT_FALSE(isClosed_) << "A closed panel was used: " << call;
    log_->effect(std::move(call));
}

} // namespace tessel::test
