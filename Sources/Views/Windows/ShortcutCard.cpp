#include "Windows/ShortcutCard.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

#include "Support/DevicePixels.h"
#include "Support/TextStyle.h"
#include "Windows/KeyLabel.h"
#include "Windows/SymbolView.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

constexpr int padding = 14; // Points, as the other lengths.
constexpr int rowSpacing = 10;
constexpr int spacingInRow = 8;
constexpr double cornerRadius = 14;
constexpr double outlineWidth = 1;
constexpr QSize symbolSize(16, 12);

} // namespace

ShortcutCard::ShortcutCard(const WindowTheme& theme)
    : theme_(theme)
    , card_(cornerRadius, outlineWidth)
    , rows_(new QVBoxLayout(this))
{
    rows_->setContentsMargins(padding, padding, padding, padding);
    rows_->setSpacing(rowSpacing);
    rows_->addWidget(
        new WindowLabel(tr("Keyboard Shortcuts"), textStyle::headline, &WindowColors::primaryText, theme));
    hotKey_ = addRow(QStringLiteral("keyboard"), tr("Open history"), {});
    addRow(QStringLiteral("arrow.up.arrow.down"), tr("Navigate items"), tr("Up / Down"));
    addRow(QStringLiteral("return"), tr("Paste selected"), tr("Enter"));
    addRow(QStringLiteral("escape"), tr("Close panel"), tr("Esc"));
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

QLabel* ShortcutCard::addRow(const QString& symbol, const QString& title, const QString& keys)
{
    auto* keyLabel = new KeyLabel(keys, theme_);
    auto* row = new QHBoxLayout;
    row->setSpacing(spacingInRow);
    row->addWidget(new SymbolView(symbol, symbolSize, &WindowColors::secondaryText, theme_));
    row->addWidget(new WindowLabel(title, {textStyle::calloutSize}, &WindowColors::primaryText, theme_));
    row->addStretch();
    row->addWidget(keyLabel);
    rows_->addLayout(row);
    return keyLabel;
}

void ShortcutCard::setHotKey(const QString& keys)
{
    hotKey_->setText(keys);
}

void ShortcutCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    card_.draw(painter, alignedToDevicePixels(painter, rect()), theme_.colors().cardFill,
               theme_.colors().outline);
}

} // namespace tessel
