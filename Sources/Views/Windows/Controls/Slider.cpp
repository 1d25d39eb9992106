#include "Windows/Controls/Slider.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>

#include <algorithm>
#include <cmath>

#include "Support/DevicePixels.h"
#include "Support/VisualRectangle.h"
#include "Windows/Controls/ControlColors.h"
#include "Windows/Controls/ControlPainting.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

// In points.
constexpr double knobSide = 16;
constexpr int controlHeight = 18;
constexpr int shortest = 80;
constexpr double trackHeight = 4;

} // namespace

Slider::Slider(const WindowTheme& theme, QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
    , theme_(theme)
{
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

QSize Slider::sizeHint() const
{
    return {shortest, controlHeight};
}

QRectF Slider::knob() const
{
    const double way = width() - knobSide;
    const double share = maximum() > minimum()
                             ? static_cast<double>(sliderPosition() - minimum()) / (maximum() - minimum())
                             : 0;
    return visualRectangle(layoutDirection(), rect(),
                           {share * way, (height() - knobSide) / 2, knobSide, knobSide});
}

int Slider::valueAt(double x) const
{
    const double way = std::max(1.0, width() - knobSide);
    const double fromLeft = std::clamp((x - knobSide / 2) / way, 0.0, 1.0);
    const double share = isRightToLeft() ? 1 - fromLeft : fromLeft;
    return minimum() + static_cast<int>(std::lround(share * (maximum() - minimum())));
}

FocusOutline Slider::focusOutline() const
{
    return {knob(), knobSide / 2};
}

void Slider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    const ControlColors& colors = theme_.controlColors();
    const QRectF place = knob();

    const QRectF track =
        alignedToDevicePixels(painter, {0, (height() - trackHeight) / 2, double(width()), trackHeight});
    QRectF filled = track;
    isRightToLeft() ? filled.setLeft(place.center().x()) : filled.setRight(place.center().x());
    painter.setBrush(colors.track);
    painter.drawRoundedRect(track, trackHeight / 2, trackHeight / 2);
    painter.setBrush(theme_.colors().accent);
    painter.drawRoundedRect(filled, trackHeight / 2, trackHeight / 2);

    painter.setBrush(colors.knobShadow);
    painter.drawEllipse(place.adjusted(-0.5, 0, 0.5, 1));
    paintBezel(painter, place, knobSide / 2, isSliderDown() ? colors.knob.pressed : colors.knob.normal,
               colors.knobEdge);
}

void Slider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    const double x = event->position().x();
    const bool isOnKnob = knob().adjusted(-1, -1, 1, 1).contains(event->position());
    hold_ = isOnKnob ? x - knob().center().x() : 0;
    setSliderDown(true);
    if (!isOnKnob)
        setSliderPosition(valueAt(x));
}

void Slider::mouseMoveEvent(QMouseEvent* event)
{
    if (!isSliderDown())
        return event->ignore();
    setSliderPosition(valueAt(event->position().x() - hold_));
}

void Slider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isSliderDown())
        return event->ignore();
    setSliderDown(false);
    update();
}

void Slider::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace tessel
