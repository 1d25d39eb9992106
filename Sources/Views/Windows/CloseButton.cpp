#include "Windows/CloseButton.h"

#include <QtGui/QPainter>

#include <utility>

#include "Support/DevicePixels.h"
#include "Windows/Controls/ReturnKey.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

constexpr int horizontalPadding = 12; // Points, as the other lengths.
constexpr int verticalPadding = 6;
constexpr double cornerRadius = 9;
constexpr double outlineWidth = 1;
constexpr double pressedOpacity = 0.75;

} // namespace

CloseButton::CloseButton(const WindowTheme& theme, std::function<void()> close, QWidget* parent)
    : QAbstractButton(parent)
    , theme_(theme)
    , style_({textStyle::calloutSize, QFont::DemiBold})
{
    setFont(style_.font);
    setText(tr("Close"));
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const int textWidth = style_.widthOf(text());
    size_ = {textWidth + 2 * horizontalPadding, style_.lineHeight + 2 * verticalPadding};
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
    connect(this, &QAbstractButton::clicked, this, std::move(close));
}

FocusOutline CloseButton::focusOutline() const
{
    return {rect(), cornerRadius};
}

void CloseButton::keyPressEvent(QKeyEvent* event)
{
    if (!pressWithReturn(*this, *event))
        QAbstractButton::keyPressEvent(event);
}

void CloseButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isDown())
        painter.setOpacity(pressedOpacity);
    const QRectF shape = alignedToDevicePixels(painter, rect());
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme_.colors().closeFill);
    painter.drawRoundedRect(shape, cornerRadius, cornerRadius);

    // Wholly inside, because the view ends there.
    constexpr double inset = outlineWidth / 2;
    painter.setPen(QPen(theme_.colors().closeOutline, outlineWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(shape.adjusted(inset, inset, -inset, -inset), cornerRadius - inset,
                            cornerRadius - inset);

    painter.setPen(Qt::white);
    painter.drawText(QPointF(horizontalPadding, verticalPadding + style_.ascent), text());
}

} // namespace tessel
