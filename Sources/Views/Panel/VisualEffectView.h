#pragma once

#include <memory>

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include "Support/Backdrop.h"
#include "Support/WindowBlending.h"
#include "VisualEffect.h"

namespace tessel {

/// Fills itself with a material (`NSVisualEffectView`). It does not take part in mouse events.
///
/// Behind the window shines through what `setBackdrop` has been given, else what the window system lets
/// through, where it does. Within the window that is what the window shows beneath the view, blurred in the
/// same way. Where the system draws the material itself, all of that is its business.
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
    /// From now on `effect`, which is behind this view, draws the material, and is told of every setting,
    /// also of one that changes nothing.
    void leaveDrawingTo(std::unique_ptr<VisualEffect> effect);
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
    /// Null: this view draws the material.
    std::unique_ptr<VisualEffect> effect_;
    /// Made when it is first painted, for one rectangle.
    QImage picture_;
    QRect pictureRectangle_;
    /// A part has been painted, and the whole is to follow.
    bool repaintsWhole_ = false;
};

} // namespace tessel
