#pragma once

#include <functional>

#include <QtWidgets/QWidget>

namespace tessel {

class WindowTheme;

/// The content of the window that asks for the Accessibility permission.
class AccessibilityOnboardingView final : public QWidget {
    Q_OBJECT

public:
    /// `openSettings` asks for the permission, `close` closes the window. `theme` must outlive this object.
    AccessibilityOnboardingView(WindowTheme& theme, std::function<void()> openSettings,
                                std::function<void()> close);

private:
    WindowTheme& theme_;
    std::function<void()> openSettings_;
    std::function<void()> close_;
};

} // namespace tessel
