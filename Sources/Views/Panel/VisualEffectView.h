#pragma once

#include <memory>

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include "Support/Backdrop.h"
#include "Support/WindowBlending.h"

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

/// Fills itself with a material (`NSVisualEffectView`). It does not take part in mouse events.
///
/// Behind the window shines through what `setBackdrop` has been given, else what the window system lets
/// through, where it does. Within the window that is what the window shows beneath the view, blurred in the
/// same way.
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
    /// What is behind the window, in its device pixels. Null: it is not known.
    void setBackdrop(std::shared_ptr<const Backdrop> backdrop);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    template <class Value>
    void set(Value& property, const Value& value);
    bool isActive() const;
    MaterialColor color() const;
    /// The view in device pixels, from the corner of its window.
    QRect deviceRectangle() const;
    const QImage& pictureOfBackdrop();
    void paintWithinWindow(QPainter& painter);

    VisualEffectMaterial material_ = VisualEffectMaterial::windowBackground;
    VisualEffectBlendingMode blendingMode_ = VisualEffectBlendingMode::behindWindow;
    VisualEffectState state_ = VisualEffectState::followsWindowActiveState;
    WindowBlending windowBlending_ = WindowBlending::opaque;
    std::shared_ptr<const Backdrop> backdrop_;
    /// Made when it is first painted, for one rectangle.
    QImage picture_;
    QRect pictureRectangle_;
    /// A part has been painted, and the whole is to follow.
    bool repaintsWhole_ = false;
};

} // namespace tessel
