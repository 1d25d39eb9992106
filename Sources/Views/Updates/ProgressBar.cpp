#include "Updates/ProgressBar.h"

#include <QtCore/QTimerEvent>
#include <QtGui/QPainter>

#include <cmath>
#include <numbers>

#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

constexpr int thickness = 6;        // Points.
constexpr int frameInterval = 33;   // Milliseconds.
constexpr double period = 2.2;      // Seconds, there and back.
constexpr double pieceLength = 0.3; // Of the bar.

} // namespace

ProgressBar::ProgressBar(const WindowTheme& theme)
    : theme_(theme)
{
    setRange(0, 0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

QSize ProgressBar::sizeHint() const
{
    constexpr int usualWidth = 200;
    return {usualWidth, thickness};
}

void ProgressBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double radius = thickness / 2.0;
    const QRectF track(0, 0, width(), thickness);
    painter.setBrush(theme_.controlColors().track);
    painter.drawRoundedRect(track, radius, radius);
    const double phase = theme_.reducesMotion()
                             ? 0
                             : static_cast<double>(shown_.elapsed()) / 1000 / period * 2 * std::numbers::pi;
    const double length = width() * pieceLength;
    const double left = (width() - length) * (1 - std::cos(phase)) / 2;
    painter.setBrush(theme_.colors().accent);
    painter.drawRoundedRect(QRectF(left, 0, length, thickness), radius, radius);
}

void ProgressBar::showEvent(QShowEvent* event)
{
    QProgressBar::showEvent(event);
    shown_.start();
    frames_.start(frameInterval, Qt::CoarseTimer, this);
}

void ProgressBar::hideEvent(QHideEvent* event)
{
    QProgressBar::hideEvent(event);
    frames_.stop();
}

void ProgressBar::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != frames_.timerId())
        return QProgressBar::timerEvent(event);
    if (!theme_.reducesMotion())
        update();
}

} // namespace tessel
