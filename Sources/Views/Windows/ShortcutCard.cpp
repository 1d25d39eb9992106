#include "Windows/ShortcutCard.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

#include "Support/TextStyle.h"
#include "Windows/KeyLabel.h"
#include "Windows/SymbolView.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

constexpr int padding = 14; // Points, as the other lengths.
constexpr int rowSpacing = 10;
constexpr double cornerRadius = 14;
constexpr int spacingInRow = 8;
constexpr QSize symbolSize(16, 12);

} // namespace

ShortcutCard::ShortcutCard(const WindowTheme& theme)
    : SectionCard(theme, {padding, rowSpacing, cornerRadius})
    , theme_(theme)
{
    content().addWidget(
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
    content().addLayout(row);
    return keyLabel;
}

void ShortcutCard::setHotKey(const QString& keys)
{
    hotKey_->setText(keys);
}

} // namespace tessel
