#include "Windows/SectionCard.h"

#include <QtGui/QPainter>
#include <QtWidgets/QVBoxLayout>

#include "Support/ContinuousCorners.h"
#include "Support/DevicePixels.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

// In points.
constexpr int padding = 12;
constexpr int spacing = 8;
constexpr double cornerRadius = 11;
constexpr double outlineWidth = 1;
constexpr double miterLimit = 10;

} // namespace

SectionCard::SectionCard(const WindowTheme& theme, QWidget* parent)
    : QWidget(parent)
    , theme_(theme)
    , content_(new QVBoxLayout(this))
{
    content_->setContentsMargins(padding, padding, padding, padding);
    content_->setSpacing(spacing);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

void SectionCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF card = alignedToDevicePixels(painter, rect());
    painter.fillPath(continuousRoundedRectangle(card, cornerRadius), theme_.colors().cardFill);

    // Wholly inside, because what scrolls the cards ends at their edges.
    constexpr double half = outlineWidth / 2;
    QPen pen(theme_.colors().outline, outlineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    pen.setMiterLimit(miterLimit);
    painter.strokePath(
        continuousRoundedRectangle(card.adjusted(half, half, -half, -half), cornerRadius - half), pen);
}

} // namespace tessel
