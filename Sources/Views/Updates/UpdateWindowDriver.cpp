#include "Updates/UpdateWindowDriver.h"

#include <utility>

#include "Accessibility/WindowAccessibility.h"
#include "Application.h"
#include "Updates/UpdateWindow.h"

namespace tessel {

UpdateWindowDriver::UpdateWindowDriver(const Needs& needs)
    : needs_(needs)
{
    installWindowAccessibility();
}

UpdateWindowDriver::~UpdateWindowDriver() = default;

void UpdateWindowDriver::show(const UpdateStatus& status, UpdateOccasion occasion,
                              std::function<void(UpdateAnswer)> answer)
{
    if (controller_)
        return window()->showStatus(status, std::move(answer));
    std::unique_ptr<QWidget, Retirement> window(new UpdateWindow(needs_.theme));
    window->setAttribute(Qt::WA_ShowWithoutActivating, occasion == UpdateOccasion::unasked);
    controller_ =
        std::make_unique<SecondaryWindowController>(std::move(window), needs_.nativeWindows, needs_.screens);
    this->window()->showStatus(status, std::move(answer));
    if (occasion == UpdateOccasion::asked)
        bringForward();
    else
        controller_->showWindow();
}

void UpdateWindowDriver::bringForward()
{
    if (!controller_)
        return;
    window()->acceptReturn();
    controller_->showWindow();
    needs_.application.activate(IgnoringOtherApps::yes);
}

void UpdateWindowDriver::close()
{
    controller_.reset();
}

UpdateWindow* UpdateWindowDriver::window() const
{
    return controller_ ? static_cast<UpdateWindow*>(&controller_->window()) : nullptr;
}

} // namespace tessel
