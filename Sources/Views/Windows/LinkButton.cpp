#include "Windows/LinkButton.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

#include <algorithm>
#include <utility>

#include "Windows/Controls/ReturnKey.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

constexpr int symbolSide = 12; // Points, as the other lengths.
constexpr int spacing = 5;
constexpr double focusRadius = 3;
constexpr double pressedOpacity = 0.6;

} // namespace

LinkButton::LinkButton(const QString& text, const WindowTheme& theme, std::function<void()> open)
    : theme_(theme)
    , style_({textStyle::captionSize})
{
    setFont(style_.font);
    setText(text);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const int textWidth = style_.widthOf(text);
    size_ = {symbolSide + spacing + textWidth, std::max(symbolSide, style_.lineHeight)};
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
    connect(this, &QAbstractButton::clicked, this, std::move(open));
}

void LinkButton::keyPressEvent(QKeyEvent* event)
{
    if (!pressWithReturn(*this, *event))
        QAbstractButton::keyPressEvent(event);
}

FocusOutline LinkButton::focusOutline() const
{
    return {rect(), focusRadius};
}

void LinkButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isDown())
        painter.setOpacity(pressedOpacity);
    const auto place = [this](const QRect& rectangle) {
        return QStyle::visualRect(layoutDirection(), rect(), rectangle);
    };
    const QColor& color = theme_.colors().linkText;
    symbol_.draw(painter, place({0, (height() - symbolSide) / 2, symbolSide, symbolSide}), color);

    const int textLeft = symbolSide + spacing;
    const QRect line =
        place({textLeft, (height() - style_.lineHeight) / 2, width() - textLeft, style_.lineHeight});
    painter.setPen(color);
    painter.drawText(QPointF(line.left(), line.top() + style_.ascent), text());
}

} // namespace tessel
