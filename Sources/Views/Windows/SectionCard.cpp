#include "Windows/SectionCard.h"

#include <QtGui/QPainter>
#include <QtWidgets/QVBoxLayout>

#include "Support/DevicePixels.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

// In points.
constexpr int padding = 12;
constexpr int spacing = 8;
constexpr double cornerRadius = 11;
constexpr double outlineWidth = 1;

} // namespace

SectionCard::SectionCard(const WindowTheme& theme, QWidget* parent)
    : QWidget(parent)
    , theme_(theme)
    , card_(cornerRadius, outlineWidth)
    , content_(new QVBoxLayout(this))
{
    content_->setContentsMargins(padding, padding, padding, padding);
    content_->setSpacing(spacing);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

void SectionCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    card_.draw(painter, alignedToDevicePixels(painter, rect()), theme_.colors().cardFill,
               theme_.colors().outline);
}

} // namespace tessel
