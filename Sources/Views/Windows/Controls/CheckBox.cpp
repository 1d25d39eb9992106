#include "Windows/Controls/CheckBox.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

#include <algorithm>

#include "Support/CheckMark.h"
#include "Support/VisualRectangle.h"
#include "Windows/Controls/ControlColors.h"
#include "Windows/Controls/ControlPainting.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

// In points.
constexpr int boxSide = 14;
constexpr double boxCornerRadius = 3.5;
constexpr int spacing = 6;

} // namespace

CheckBox::CheckBox(const QString& label, const WindowTheme& theme, QWidget* parent)
    : QCheckBox(label, parent)
    , theme_(theme)
    , textStyle_({textStyle::bodySize})
{
    setFont(textStyle_.font);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

QSize CheckBox::sizeHint() const
{
    const int textWidth = textStyle_.widthOf(text());
    return {boxSide + spacing + textWidth, std::max(boxSide, textStyle_.lineHeight)};
}

QRect CheckBox::box() const
{
    return QStyle::visualRect(layoutDirection(), rect(), {0, (height() - boxSide) / 2, boxSide, boxSide});
}

FocusOutline CheckBox::focusOutline() const
{
    return {box(), boxCornerRadius};
}

void CheckBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    const ControlColors& colors = theme_.controlColors();
    const FillColors& fills = isChecked() ? colors.prominent : colors.bezel;
    paintBezel(painter, box(), boxCornerRadius, isDown() ? fills.pressed : fills.normal,
               isChecked() ? colors.prominentEdge : colors.bezelEdge);
    if (isChecked())
        paintCheckMark(painter, box(), colors.prominentText);

    const double textWidth = width() - boxSide - spacing;
    const QRectF label =
        visualRectangle(layoutDirection(), rect(), QRectF(boxSide + spacing, 0, textWidth, height()));
    painter.setPen(colors.text);
    painter.drawText(QPointF(label.left(), textStyle_.baselineIn(height())), text());
}

} // namespace tessel
