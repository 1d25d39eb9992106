#include "Windows/SectionCard.h"

#include <QtGui/QPainter>
#include <QtWidgets/QVBoxLayout>

#include "Support/DevicePixels.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

constexpr double outlineWidth = 1; // Points.

} // namespace

SectionCard::SectionCard(const WindowTheme& theme, const CardMeasures& measures)
    : theme_(theme)
    , card_(measures.cornerRadius, outlineWidth)
    , content_(new QVBoxLayout(this))
{
    const int padding = measures.padding;
    content_->setContentsMargins(padding, padding, padding, padding);
    content_->setSpacing(measures.spacing);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

void SectionCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    card_.draw(painter, alignedToDevicePixels(painter, rect()), theme_.colors().cardFill,
               theme_.colors().outline);
}

} // namespace tessel
