#pragma once

#include <array>

#include <QtCore/QBasicTimer>
#include <QtCore/QElapsedTimer>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include "Support/NinePatch.h"
#include "Support/WindowBlending.h"

namespace tessel {

class WindowTheme;

/// The root of a window without a title bar: its rounded background with two blurred circles that drift to
/// and fro behind the content, and its outline.
///
/// The circles begin to drift when the window first appears. They rest while it cannot be seen, and stand
/// still where the user wants little motion.
class AnimatedBackground final : public QWidget {
    Q_OBJECT

public:
    static constexpr double cornerRadius = 16; ///< Points, of continuous corners.

    /// `content`, of which this takes ownership, fills it. `theme` must outlive this object.
    AnimatedBackground(QWidget* content, const WindowTheme& theme);

    /// Without blending the corners are filled: the window's shape cuts them off.
    void setWindowBlending(WindowBlending windowBlending);
    /// Others are wholly in front of the window, or no longer.
    void setCovered(bool isCovered);
    /// The circles go to where they are that many seconds after they have begun to drift.
    void driftTo(double seconds);
    /// False: hidden, covered, or the user wants little motion.
    bool isDrifting() const { return frames_.isActive(); }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    static constexpr std::size_t circleCount = 2;

    void restOrDrift();
    void forgetPictures() { circlePictures_ = {}; }
    void preparePictures(double devicePixelRatio);
    void paintCircles(QPainter& painter);

    const WindowTheme& theme_;
    WindowBlending windowBlending_ = WindowBlending::translucent;
    bool isCovered_ = false;
    QElapsedTimer sinceAppearance_;
    QBasicTimer frames_;
    /// How far the circles are on their way, 0 to 1.
    double phase_ = 0;
    /// @name What is drawn, in pictures of one scale.
    /// @{
    std::array<QImage, circleCount> circlePictures_;
    NinePatch shape_;
    NinePatch outline_;
    double picturesRatio_ = 0;
    /// @}
};

} // namespace tessel
