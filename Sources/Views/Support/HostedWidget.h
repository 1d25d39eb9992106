#pragma once

#include <memory>
#include <optional>

#include "HostedContent.h"
#include "Support/Retirement.h"

namespace tessel {

/// A widget as what a window of the system's own shows.
class HostedWidget final : public HostedContent {
public:
    /// `background` is a view of the system's own behind the widget; it must live as long as that.
    explicit HostedWidget(std::unique_ptr<QWidget, Retirement> widget,
                          std::optional<NativeWindowHandle> background = std::nullopt);

    NativeWindowHandle view() const override;
    std::optional<NativeWindowHandle> background() const override { return background_; }
    void windowWillShow() override { widget_->show(); }
    void windowDidClose() override { widget_->hide(); }

    QWidget& widget() const { return *widget_; }

private:
    std::unique_ptr<QWidget, Retirement> widget_;
    std::optional<NativeWindowHandle> background_;
};

} // namespace tessel
