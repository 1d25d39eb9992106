#pragma once

#include <functional>

#include <QtWidgets/QWidget>

class QLayout;

namespace tessel {

class WindowTheme;

/// The window that says why the Accessibility permission is needed, and asks for it. It has a title bar.
class AccessibilityOnboardingView final : public QWidget {
    Q_OBJECT

public:
    /// `openSettings` asks for the permission, `close` closes the window. `theme` must outlive this object.
    AccessibilityOnboardingView(WindowTheme& theme, std::function<void()> openSettings,
                                std::function<void()> close);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLayout* makeSteps();
    QLayout* makeButtons(std::function<void()> openSettings, std::function<void()> close);

    WindowTheme& theme_;
};

} // namespace tessel
