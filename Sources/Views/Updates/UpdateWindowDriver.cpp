#include "Updates/UpdateWindowDriver.h"

#include <QtGui/QScreen>

#include <algorithm>
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
        return replace(status, std::move(answer));
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

void UpdateWindowDriver::replace(const UpdateStatus& status, std::function<void(UpdateAnswer)> answer)
{
    UpdateWindow& window = *this->window();
    const QSize before = window.size();
    window.showStatus(status, std::move(answer));
    // It grows and shrinks around its middle, and not over the edges of the screen.
    const QSize growth = window.size() - before;
    const QRect visible = window.screen()->availableGeometry();
    const QPoint last(visible.right() - window.frameGeometry().width() + 1,
                      visible.bottom() - window.frameGeometry().height() + 1);
    const QPoint place = window.pos() - QPoint(growth.width() / 2, growth.height() / 2);
    window.move(std::max(std::min(place.x(), last.x()), visible.left()),
                std::max(std::min(place.y(), last.y()), visible.top()));
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
