#include "Windows/AnimatedBackground.h"

#include <QtCore/QEasingCurve>
#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtGui/QWindow>
#include <QtWidgets/QVBoxLayout>

#include <cmath>

#include "Support/BlurredCircle.h"
#include "Support/DevicePixels.h"
#include "Support/FrameMaker.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

/// A circle that drifts, in points from the middle of the background.
struct DriftingCircle {
    BlurredCircle shape;
    QPointF start;
    QPointF end;
    QColor WindowColors::*color;

    QPointF offset(double phase) const { return start + (end - start) * phase; }
};

const std::array circles = {
    DriftingCircle{{220, 42}, {96, -96}, {132, -132}, &WindowColors::firstCircle},
    DriftingCircle{{180, 40}, {-92, 82}, {-132, 112}, &WindowColors::secondCircle},
};

constexpr double secondsEachWay = 6;
constexpr double outlineWidth = 1; // Points.

/// The platform's ease-in-out timing curve.
QEasingCurve easeInEaseOut()
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
    return curve;
}

/// How far the circles are on their way after so many seconds, 0 to 1: to the end and back again.
double phaseAfter(double seconds)
{
    static const QEasingCurve curve = easeInEaseOut();
    const double way = std::fmod(seconds / secondsEachWay, 2);
    return curve.valueForProgress(way <= 1 ? way : 2 - way);
}

/// The blurred edges are so soft that no pixel changes by more than one of 256 levels with such a step;
/// smaller ones would only cost more.
double inSteps(double phase)
{
    constexpr double steps = 18;
    return std::round(phase * steps) / steps;
}

/// More often than the circles take a step where they are fastest.
constexpr int millisecondsPerFrame = 150;

} // namespace

AnimatedBackground::AnimatedBackground(QWidget* content, const WindowTheme& theme)
    : theme_(theme)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    connect(&theme, &WindowTheme::didChange, this, [this] {
        forgetPictures();
        restOrDrift();
        update();
    });
}

void AnimatedBackground::setWindowBlending(WindowBlending windowBlending)
{
    windowBlending_ = windowBlending;
    update();
}

void AnimatedBackground::setCovered(bool isCovered)
{
    isCovered_ = isCovered;
    restOrDrift();
}

void AnimatedBackground::driftTo(double seconds)
{
    const double phase = inSteps(phaseAfter(seconds));
    if (phase == phase_)
        return;
    phase_ = phase;
    update();
}

void AnimatedBackground::showEvent(QShowEvent*)
{
    if (!sinceAppearance_.isValid())
        sinceAppearance_.start();
    window()->windowHandle()->installEventFilter(this);
    restOrDrift();
}

void AnimatedBackground::hideEvent(QHideEvent*)
{
    forgetPictures();
    restOrDrift();
}

bool AnimatedBackground::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Expose)
        restOrDrift();
    return false;
}

void AnimatedBackground::restOrDrift()
{
    const bool isSeen = isVisible() && window()->windowHandle()->isExposed() && !isCovered_;
    if (!isSeen || theme_.reducesMotion())
        frames_.stop();
    else if (!frames_.isActive())
        frames_.start(millisecondsPerFrame, this);
}

void AnimatedBackground::timerEvent(QTimerEvent*)
{
    constexpr double millisecondsPerSecond = 1000;
    driftTo(static_cast<double>(sinceAppearance_.elapsed()) / millisecondsPerSecond);
}

void AnimatedBackground::preparePictures(double devicePixelRatio)
{
    if (picturesRatio_ == devicePixelRatio && !circlePictures_.front().isNull())
        return;
    picturesRatio_ = devicePixelRatio;
    constexpr int nothingBeyondTheWindow = 0;
    const FrameMaker frames(cornerRadius, nothingBeyondTheWindow, devicePixelRatio);
    QImage shape = frames.blank();
    frames.fill(shape, Qt::black);
    shape_ = frames.patch(shape);
    QImage outline = frames.blank();
    frames.stroke(outline, {outlineWidth, theme_.colors().outline}, nothingBeyondTheWindow);
    outline_ = frames.patch(outline);
    for (std::size_t index = 0; index < circleCount; ++index) {
        const DriftingCircle& circle = circles.at(index);
        circlePictures_.at(index) = circle.shape.picture(theme_.colors().*circle.color, devicePixelRatio);
    }
}

void AnimatedBackground::paintCircles(QPainter& painter)
{
    const double ratio = tessel::devicePixelRatio(painter);
    const QPointF middle = QRectF(rect()).center();
    painter.save();
    // In device pixels pictures are copied, and not scaled.
    painter.scale(1 / ratio, 1 / ratio);
    for (std::size_t index = 0; index < circleCount; ++index) {
        const QImage& picture = circlePictures_.at(index);
        const QPointF center = (middle + circles.at(index).offset(phase_)) * ratio;
        painter.drawImage(center.toPoint() - QPoint(picture.width(), picture.height()) / 2, picture);
    }
    painter.restore();
}

void AnimatedBackground::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    preparePictures(tessel::devicePixelRatio(painter));
    const QRectF root = alignedToDevicePixels(painter, rect());
    painter.fillRect(root, theme_.colors().windowBackground);
    paintCircles(painter);

    if (windowBlending_ == WindowBlending::translucent) {
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        shape_.drawCorners(painter, root);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    outline_.draw(painter, root);
}

} // namespace tessel
