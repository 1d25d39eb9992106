#include "Support/HostedWidget.h"

#include <utility>

#include "Support/NativeHandle.h"

namespace tessel {

HostedWidget::HostedWidget(std::unique_ptr<QWidget, Retirement> widget,
                           std::optional<NativeWindowHandle> background)
    : widget_(std::move(widget))
    , background_(background)
{}

NativeWindowHandle HostedWidget::view() const
{
    return handleOf(*widget_);
}

} // namespace tessel
