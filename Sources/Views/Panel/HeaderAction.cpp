#include "Panel/HeaderAction.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <cmath>
#include <utility>

#include "Panel/PanelFonts.h"
#include "Panel/PanelStyle.h"
#include "Support/ContinuousCorners.h"
#include "Support/DevicePixels.h"

namespace tessel {

using namespace panelStyle;

HeaderAction::HeaderAction(const QString& title, const PanelFonts& fonts, std::function<void()> action,
                           QWidget* parent)
    : QAbstractButton(parent)
    , ascent_(fonts.headerAction.ascent)
{
    setFocusPolicy(Qt::NoFocus);
    setFont(fonts.headerAction.font);
    setText(title);
    const int textWidth =
        static_cast<int>(std::ceil(QFontMetricsF(fonts.headerAction.font).horizontalAdvance(title)));
    size_ = {textWidth + 2 * headerAction::horizontalPadding,
             fonts.headerAction.lineHeight + 2 * headerAction::verticalPadding};
    connect(this, &QAbstractButton::clicked, this, std::move(action));
}

void HeaderAction::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF capsule = alignedToDevicePixels(painter, rect());
    painter.fillPath(continuousRoundedRectangle(capsule, capsule.height() / 2),
                     white(isDown() ? headerAction::pressedFillOpacity : headerAction::fillOpacity));
    painter.setPen(white(headerAction::labelOpacity));
    painter.drawText(QPointF(headerAction::horizontalPadding, headerAction::verticalPadding + ascent_),
                     text());
}

} // namespace tessel
