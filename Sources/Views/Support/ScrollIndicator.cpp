#include "Support/ScrollIndicator.h"

#include <QtGui/QPainter>

#include <algorithm>

#include "Panel/PanelStyle.h"
#include "Support/ScrollPosition.h"
#include "Support/VisualRectangle.h"

namespace tessel {

using namespace panelStyle;

namespace {

double trackLength(const ScrollPosition& position)
{
    return position.viewHeight() - scrollIndicator::topInset - scrollIndicator::bottomInset;
}

double knobLength(const ScrollPosition& position)
{
    const double share = position.viewHeight() / position.contentHeight();
    return std::max(scrollIndicator::minimumLength, trackLength(position) * share);
}

double knobTop(const ScrollPosition& position)
{
    const double way = trackLength(position) - knobLength(position);
    return scrollIndicator::topInset + way * position.offset() / position.maximum();
}

QRectF atEndOfLines(const ScrollIndicator::View& view, const QRectF& atRight)
{
    return visualRectangle(view.direction, {0, 0, view.width, 0}, atRight);
}

} // namespace

std::optional<QRectF> ScrollIndicator::knob(const ScrollPosition& position, const View& view)
{
    if (!position.overflows())
        return std::nullopt;
    return atEndOfLines(view, {view.width - scrollIndicator::edgeInset - scrollIndicator::thickness,
                               knobTop(position), scrollIndicator::thickness, knobLength(position)});
}

std::optional<QRectF> ScrollIndicator::track(const ScrollPosition& position, const View& view)
{
    if (!position.overflows())
        return std::nullopt;
    return atEndOfLines(
        view, {view.width - list::horizontalPadding, 0, list::horizontalPadding, position.viewHeight()});
}

void ScrollIndicator::press(double y, const ScrollPosition& position)
{
    const double length = knobLength(position);
    const double distance = y - knobTop(position);
    const bool isOnKnob = distance >= 0 && distance < length;
    hold_ = isOnKnob ? distance : length / 2;
}

double ScrollIndicator::offsetAt(double y, const ScrollPosition& position) const
{
    const double way = trackLength(position) - knobLength(position);
    if (way <= 0)
        return position.offset();
    const double top = y - hold_.value_or(0) - scrollIndicator::topInset;
    return std::clamp(top / way, 0.0, 1.0) * position.maximum();
}

void ScrollIndicator::paint(QPainter& painter, const ScrollPosition& position, const View& view,
                            QColor color) const
{
    const auto bar = knob(position, view);
    if (!bar)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    color.setAlphaF(isHeld() ? scrollIndicator::pressedOpacity : scrollIndicator::opacity);
    painter.setBrush(color);
    painter.drawRoundedRect(*bar, scrollIndicator::thickness / 2, scrollIndicator::thickness / 2);
}

} // namespace tessel
