#include "Windows/Controls/PushButton.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

#include <algorithm>

#include "Windows/Controls/ControlColors.h"
#include "Windows/Controls/ControlPainting.h"
#include "Windows/Controls/ReturnKey.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

// In points.
constexpr double smallSize = 11;
constexpr int smallHeight = 20;
constexpr int smallPadding = 8;
constexpr double smallCornerRadius = 5;
constexpr int regularHeight = 22;
constexpr int regularPadding = 12;
constexpr double regularCornerRadius = 6;

TextStyle styleFor(PushButton::ControlSize size)
{
    return TextStyle({size == PushButton::ControlSize::small ? smallSize : textStyle::bodySize});
}

} // namespace

PushButton::PushButton(const QString& title, Look look, const WindowTheme& theme, QWidget* parent,
                       ControlSize controlSize)
    : QPushButton(title, parent)
    , theme_(theme)
    , look_(look)
    , controlSize_(controlSize)
    , textStyle_(styleFor(controlSize))
{
    setFont(textStyle_.font);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

void PushButton::setLook(Look look)
{
    if (look_ == look)
        return;
    look_ = look;
    update();
}

QSize PushButton::sizeHint() const
{
    const int width = textStyle_.widthOf(text());
    const int height = controlSize_ == ControlSize::small ? smallHeight : regularHeight;
    return {width + 2 * padding(), std::max(height, textStyle_.lineHeight)};
}

int PushButton::padding() const
{
    if (look_ == Look::plain)
        return 0;
    return controlSize_ == ControlSize::small ? smallPadding : regularPadding;
}

double PushButton::cornerRadius() const
{
    return controlSize_ == ControlSize::small ? smallCornerRadius : regularCornerRadius;
}

FocusOutline PushButton::focusOutline() const
{
    return {rect(), cornerRadius()};
}

QColor PushButton::textColor() const
{
    switch (look_) {
    case Look::bordered:
        return theme_.controlColors().text;
    case Look::borderedProminent:
        return theme_.controlColors().prominentText;
    case Look::plain:
        break;
    }
    return isDown() ? theme_.colors().primaryText : theme_.colors().secondaryText;
}

void PushButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    const ControlColors& colors = theme_.controlColors();
    const auto fill = [this](const FillColors& fills) { return isDown() ? fills.pressed : fills.normal; };
    if (look_ == Look::bordered)
        paintBezel(painter, rect(), cornerRadius(), fill(colors.bezel), colors.bezelEdge);
    if (look_ == Look::borderedProminent)
        paintBezel(painter, rect(), cornerRadius(), fill(colors.prominent), colors.prominentEdge);
    painter.setPen(textColor());
    painter.drawText(QPointF(padding(), textStyle_.baselineIn(height())), text());
}

void PushButton::keyPressEvent(QKeyEvent* event)
{
    if (pressWithReturn(*this, *event))
        return;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return event->ignore();
    default:
        return QPushButton::keyPressEvent(event);
    }
}

} // namespace tessel
