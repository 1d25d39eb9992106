#pragma once

#include <QtCore/QObject>

#include "Appearance.h"
#include "Token.h"
#include "Windows/Controls/ControlColors.h"
#include "Windows/WindowColors.h"

namespace tessel {

/// How the settings, about and onboarding windows look at this moment, by the user's taste.
class WindowTheme final : public QObject {
    Q_OBJECT

public:
    /// `appearance` must outlive this object, and `QGuiApplication` must exist.
    explicit WindowTheme(Appearance& appearance);

    const WindowColors& colors() const { return colors_; }
    const ControlColors& controlColors() const { return controlColors_; }
    ColorScheme colorScheme() const { return settings_.colorScheme; }
    /// Nothing is to move that does not have to.
    bool reducesMotion() const { return settings_.reducesMotion; }

signals:
    /// After any of these has changed.
    void didChange();

private:
    bool eventFilter(QObject* object, QEvent* event) override;
    void update();

    Appearance& appearance_;
    AppearanceSettings settings_;
    WindowColors colors_;
    ControlColors controlColors_;
    Token observation_;
};

} // namespace tessel
