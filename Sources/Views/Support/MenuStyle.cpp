#include "Support/MenuStyle.h"

#include <QtGui/QPainter>
#include <QtGui/QRegion>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyleOption>

#include "Support/CheckMark.h"
#include "Support/ContinuousCorners.h"
#include "Support/TextStyle.h"

namespace tessel {

namespace {

// In points.
constexpr double cornerRadius = 9;
constexpr double outlineWidth = 1;
constexpr int margin = 5;
constexpr int itemHeight = 24;
constexpr int textPadding = 10;
constexpr int minimumItemWidth = 120;
constexpr int separatorHeight = 11;
constexpr double itemCornerRadius = 5;
constexpr int checkMarkInset = 5;
constexpr int checkMarkSide = 12;
constexpr int checkMarkSpacing = 4;

bool isCheckable(const QStyleOptionMenuItem& item)
{
    return item.checkType != QStyleOptionMenuItem::NotCheckable;
}

int textInsetOf(const QStyleOptionMenuItem& item)
{
    return isCheckable(item) ? MenuStyle::textInset() : textPadding;
}

} // namespace

MenuStyle::MenuStyle(const Card& card)
    : QProxyStyle(QStringLiteral("fusion"))
    , card_(card)
{}

void MenuStyle::apply(QMenu& menu, const Card& card)
{
    if (card.fill.alpha() < 255)
        menu.setAttribute(Qt::WA_TranslucentBackground);
    menu.setWindowFlag(Qt::FramelessWindowHint);
    menu.setWindowFlag(Qt::NoDropShadowWindowHint);
    menu.setFont(TextStyle({textStyle::bodySize}).font);
    auto* style = new MenuStyle(card);
    style->setParent(&menu);
    menu.setStyle(style);
}

int MenuStyle::textInset()
{
    return checkMarkInset + checkMarkSide + checkMarkSpacing;
}

int MenuStyle::itemPadding()
{
    return textPadding;
}

int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return margin;
    case PM_MenuPanelWidth:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const
{
    if (hint != SH_Menu_Mask || card_.fill.alpha() < 255)
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(returnData);
    if (mask == nullptr || option == nullptr)
        return 0;
    const QPainterPath card = continuousRoundedRectangle(option->rect, cornerRadius);
    mask->region = QRegion(card.toFillPolygon().toPolygon());
    return 1;
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contentsSize,
                                  const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || item == nullptr)
        return QProxyStyle::sizeFromContents(type, option, contentsSize, widget);
    if (item->menuItemType == QStyleOptionMenuItem::Separator)
        return {minimumItemWidth, separatorHeight};
    const int textWidth = item->fontMetrics.horizontalAdvance(item->text);
    return {std::max(textInsetOf(*item) + textWidth + textPadding, minimumItemWidth), itemHeight};
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    if (element == PE_PanelMenu)
        return drawCard(*painter, option->rect);
    if (element != PE_FrameMenu)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    if (element == CE_MenuEmptyArea)
        return;
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item != nullptr && item->menuItemType == QStyleOptionMenuItem::Separator)
        return drawSeparator(*painter, item->rect);
    if (element == CE_MenuItem && item != nullptr)
        return drawItem(*painter, *item);
    QProxyStyle::drawControl(element, option, painter, widget);
}

void MenuStyle::drawCard(QPainter& painter, const QRect& rectangle) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr double half = outlineWidth / 2;
    painter.fillPath(continuousRoundedRectangle(rectangle, cornerRadius), card_.fill);
    painter.strokePath(
        continuousRoundedRectangle(QRectF(rectangle).adjusted(half, half, -half, -half), cornerRadius - half),
        QPen(card_.outline, outlineWidth));
    painter.restore();
}

void MenuStyle::drawSeparator(QPainter& painter, const QRect& rectangle) const
{
    const QRect line(rectangle.left() + textPadding, rectangle.center().y(),
                     rectangle.width() - 2 * textPadding, 1);
    painter.fillRect(line, card_.outline);
}

void MenuStyle::drawItem(QPainter& painter, const QStyleOptionMenuItem& item) const
{
    painter.save();
    const bool isHighlighted = item.state.testFlag(State_Selected);
    if (isHighlighted) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(continuousRoundedRectangle(item.rect, itemCornerRadius),
                         item.palette.color(QPalette::Highlight));
    }
    const QColor color = item.palette.color(isHighlighted ? QPalette::HighlightedText : QPalette::Text);
    if (isCheckable(item) && item.checked)
        paintCheckMark(painter,
                       visualRect(item.direction, item.rect,
                                  {item.rect.left() + checkMarkInset,
                                   item.rect.top() + (item.rect.height() - checkMarkSide) / 2, checkMarkSide,
                                   checkMarkSide}),
                       color);
    painter.setPen(color);
    painter.setFont(item.font);
    const Qt::Alignment alignment = Qt::AlignVCenter | visualAlignment(item.direction, Qt::AlignLeft);
    painter.drawText(
        visualRect(item.direction, item.rect, item.rect.adjusted(textInsetOf(item), 0, -textPadding, 0)),
        static_cast<int>(alignment) | Qt::TextSingleLine, item.text);
    painter.restore();
}

} // namespace tessel
