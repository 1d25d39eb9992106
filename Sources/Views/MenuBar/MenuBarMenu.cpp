#include "MenuBar/MenuBarMenu.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidgetAction>

#include "Support/MenuStyle.h"
#include "Support/TextStyle.h"
#include "Windows/WindowLabel.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

// In points.
constexpr int leastWidth = 240;
constexpr int headerPadding = 5;
constexpr int headerSpacing = 2;

constexpr Text captionText = {textStyle::captionSize};

} // namespace

MenuBarMenu::MenuBarMenu(const std::vector<StatusMenuRow>& rows, const WindowTheme& theme)
    : theme_(theme)
{
    setAttribute(Qt::WA_DeleteOnClose);
    const ControlColors& colors = theme.controlColors();
    MenuStyle::apply(*this, colors.menu);
    QPalette palette;
    palette.setColor(QPalette::Text, colors.text);
    palette.setColor(QPalette::Highlight, colors.prominent.normal);
    palette.setColor(QPalette::HighlightedText, colors.prominentText);
    setPalette(palette);
    setMinimumWidth(leastWidth);
    for (const StatusMenuRow& row : rows)
        addRow(row);
    connect(&theme, &WindowTheme::didChange, this, &QWidget::close);
}

void MenuBarMenu::addRow(const StatusMenuRow& row)
{
    switch (row.kind) {
    case StatusMenuRow::Kind::header:
        return addHeader(row);
    case StatusMenuRow::Kind::separator:
        addSeparator();
        return;
    case StatusMenuRow::Kind::action:
        connect(addAction(QString::fromStdString(row.title)), &QAction::triggered, qApp, row.chosen,
                Qt::QueuedConnection);
        return;
    }
}

void MenuBarMenu::addHeader(const StatusMenuRow& row)
{
    title_ = new WindowLabel(QString::fromStdString(row.title), textStyle::headline,
                             &WindowColors::primaryText, theme_);
    caption_ = new WindowLabel({}, captionText, &WindowColors::secondaryText, theme_);
    auto* texts = new QWidget;
    auto* stack = new QVBoxLayout(texts);
    stack->setContentsMargins(MenuStyle::itemPadding(), headerPadding, MenuStyle::itemPadding(),
                              headerPadding);
    stack->setSpacing(headerSpacing);
    stack->addWidget(title_);
    stack->addWidget(caption_);
    auto* action = new QWidgetAction(this);
    action->setDefaultWidget(texts);
    action->setEnabled(false);
    addAction(action);
    header_ = action;
    setCaption(row.caption);
}

void MenuBarMenu::setCaption(const std::string& caption)
{
    caption_->setText(QString::fromStdString(caption));
    // What assistive programs read.
    header_->setText(title_->text() + QStringLiteral(", ") + caption_->text());
}

} // namespace tessel
