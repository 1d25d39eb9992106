#pragma once

#include <QtWidgets/QWidget>

namespace tessel {

/// `NSVisualEffectMaterial`: what a material is for.
enum class VisualEffectMaterial { windowBackground = 12, hudWindow = 13 };

/// `NSVisualEffectBlendingMode`: what shines through.
enum class VisualEffectBlendingMode {
    behindWindow = 0, ///< What is behind the window.
    withinWindow = 1, ///< What the window shows beneath the view.
};

/// `NSVisualEffectState`
enum class VisualEffectState { followsWindowActiveState = 0, active = 1, inactive = 2 };

/// Can what is behind the window shine through it?
enum class WindowBlending { opaque, translucent };

/// Fills itself with a material (`NSVisualEffectView`). It does not take part in mouse events.
class VisualEffectView : public QWidget {
    Q_OBJECT

public:
    explicit VisualEffectView(QWidget* parent);

    VisualEffectMaterial material() const { return material_; }
    VisualEffectBlendingMode blendingMode() const { return blendingMode_; }
    VisualEffectState state() const { return state_; }
    void setMaterial(VisualEffectMaterial material);
    void setBlendingMode(VisualEffectBlendingMode blendingMode);
    void setState(VisualEffectState state);
    void setWindowBlending(WindowBlending windowBlending);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor color() const;

    VisualEffectMaterial material_ = VisualEffectMaterial::windowBackground;
    VisualEffectBlendingMode blendingMode_ = VisualEffectBlendingMode::behindWindow;
    VisualEffectState state_ = VisualEffectState::followsWindowActiveState;
    WindowBlending windowBlending_ = WindowBlending::opaque;
};

} // namespace tessel
