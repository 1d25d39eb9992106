#include "Panel/PanelMenuStyle.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QRegion>
#include <QtWidgets/QStyleOption>

#include "Panel/PanelStyle.h"
#include "Support/ContinuousCorners.h"

namespace tessel {

using namespace panelStyle;

PanelMenuStyle::PanelMenuStyle(WindowBlending blending)
    : QProxyStyle(QStringLiteral("fusion"))
    , blending_(blending)
{}

void PanelMenuStyle::setRole(QStyleOptionMenuItem& option, Role role)
{
    const bool isDestructive = role == Role::destructive;
    option.palette.setColor(QPalette::Text,
                            isDestructive ? menu::destructiveText() : white(menu::textOpacity));
    option.palette.setColor(QPalette::Highlight, isDestructive
                                                     ? menu::destructiveHighlight()
                                                     : QGuiApplication::palette().color(QPalette::Highlight));
    option.palette.setColor(QPalette::HighlightedText, Qt::white);
}

int PanelMenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return menu::margin;
    case PM_MenuPanelWidth:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int PanelMenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                              QStyleHintReturn* returnData) const
{
    if (hint != SH_Menu_Mask || blending_ == WindowBlending::translucent)
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(returnData);
    if (mask == nullptr || option == nullptr)
        return 0;
    const QPainterPath card = continuousRoundedRectangle(option->rect, menu::cornerRadius);
    mask->region = QRegion(card.toFillPolygon().toPolygon());
    return 1;
}

QSize PanelMenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                       const QSize& contentsSize, const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || item == nullptr)
        return QProxyStyle::sizeFromContents(type, option, contentsSize, widget);
    const int textWidth = item->fontMetrics.horizontalAdvance(item->text);
    return {std::max(textWidth + 2 * menu::itemPadding, menu::minimumItemWidth), menu::itemHeight};
}

void PanelMenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                   const QWidget* widget) const
{
    if (element == PE_PanelMenu)
        return drawCard(*painter, option->rect);
    if (element != PE_FrameMenu)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void PanelMenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const
{
    if (element == CE_MenuEmptyArea)
        return;
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item != nullptr)
        return drawItem(*painter, *item);
    QProxyStyle::drawControl(element, option, painter, widget);
}

void PanelMenuStyle::drawCard(QPainter& painter, const QRect& rectangle) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor fill(menu::red, menu::green, menu::blue);
    if (blending_ == WindowBlending::translucent)
        fill.setAlphaF(menu::opacity);
    constexpr double half = menu::outlineWidth / 2;
    painter.fillPath(continuousRoundedRectangle(rectangle, menu::cornerRadius), fill);
    painter.strokePath(continuousRoundedRectangle(QRectF(rectangle).adjusted(half, half, -half, -half),
                                                  menu::cornerRadius - half),
                       QPen(white(menu::outlineOpacity), menu::outlineWidth));
    painter.restore();
}

void PanelMenuStyle::drawItem(QPainter& painter, const QStyleOptionMenuItem& item) const
{
    painter.save();
    const bool isHighlighted = item.state.testFlag(State_Selected);
    if (isHighlighted) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(continuousRoundedRectangle(item.rect, menu::itemCornerRadius),
                         item.palette.color(QPalette::Highlight));
    }
    painter.setPen(item.palette.color(isHighlighted ? QPalette::HighlightedText : QPalette::Text));
    painter.setFont(item.font);
    const Qt::Alignment alignment = Qt::AlignVCenter | visualAlignment(item.direction, Qt::AlignLeft);
    painter.drawText(item.rect.adjusted(menu::itemPadding, 0, -menu::itemPadding, 0),
                     static_cast<int>(alignment) | Qt::TextSingleLine, item.text);
    painter.restore();
}

} // namespace tessel
