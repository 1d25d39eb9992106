#include "Updates/UpdateWindow.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <utility>

#include "Support/ApplicationIcon.h"
#include "Support/TextStyle.h"
#include "Updates/ProgressBar.h"
#include "Updates/ReleaseNotesView.h"
#include "Updates/UpdateTexts.h"
#include "Windows/Controls/FocusRing.h"
#include "Windows/Controls/PushButton.h"
#include "Windows/WindowLabel.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

constexpr int leastWidth = 460; // Points, as the other lengths.
constexpr int padding = 18;
constexpr int spacing = 14;
constexpr int textSpacing = 6;
constexpr int buttonSpacing = 8;

} // namespace

UpdateWindow::UpdateWindow(WindowTheme& theme)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowCloseButtonHint)
    , theme_(theme)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setWindowTitle(tr("Software Update"));
    setWindowIcon(applicationIcon());
    // Else the first button would have the keyboard focus, and its ring, as soon as the window opens.
    setFocusPolicy(Qt::ClickFocus);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

void UpdateWindow::showStatus(const UpdateStatus& status, std::function<void(UpdateAnswer)> answer)
{
    answer_ = std::move(answer);
    if (content_ != nullptr) {
        // It may be one of its buttons that has led here.
        content_->hide();
        content_->deleteLater();
        layout()->removeWidget(content_);
    }
    notes_ = nullptr;
    prominent_ = nullptr;
    setFocus();
    content_ = new QWidget;
    auto* column = new QVBoxLayout(content_);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(spacing);
    QWidget* buttons = makeButtons(status);
    const int width = std::max(leastWidth, buttons->minimumSizeHint().width() + 2 * padding);
    addTexts(*column, status, width - 2 * padding);
    column->addWidget(buttons);
    new FocusRing(content_, theme_);
    layout()->addWidget(content_);
    setFixedSize(width, column->heightForWidth(width));
}

void UpdateWindow::addTexts(QBoxLayout& column, const UpdateStatus& status, int width)
{
    const UpdateTexts texts = updateTexts(status);
    auto* block = new QVBoxLayout;
    block->setSpacing(textSpacing);
    const auto add = [&](const QString& text, const Text& style, WindowLabel::Color color) {
        block->addWidget(new WindowLabel(text, style, color, theme_, WindowLabel::Wrapping::on));
    };
    add(texts.headline, {textStyle::thirdLevelTitleSize, QFont::DemiBold}, &WindowColors::primaryText);
    if (!texts.message.isEmpty())
        add(texts.message, {textStyle::bodySize}, &WindowColors::secondaryText);
    column.addLayout(block);
    if (std::holds_alternative<UpdateIsSought>(status)) {
        auto* progress = new ProgressBar(theme_);
        progress->setAccessibleName(texts.headline);
        column.addWidget(progress);
    }
    const auto* found = std::get_if<UpdateIsFound>(&status);
    if (found == nullptr || found->item.notes.empty())
        return;
    notes_ = new ReleaseNotesView(QString::fromStdString(found->item.notes), theme_, width);
    column.addWidget(notes_);
}

QWidget* UpdateWindow::makeButtons(const UpdateStatus& status)
{
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(buttonSpacing);
    const auto* found = std::get_if<UpdateIsFound>(&status);
    if (found == nullptr) {
        row->addStretch();
        if (std::holds_alternative<UpdateIsSought>(status))
            addButton(*row, tr("Cancel"), UpdateAnswer::dismiss);
        else
            addProminentButton(*row, tr("OK"), UpdateAnswer::dismiss);
        return bar;
    }
    addButton(*row, tr("Skip This Version"), UpdateAnswer::skip);
    row->addStretch();
    if (found->item.downloadPage.empty()) {
        addProminentButton(*row, tr("Remind Me Later"), UpdateAnswer::dismiss);
        return bar;
    }
    addButton(*row, tr("Remind Me Later"), UpdateAnswer::dismiss);
    addProminentButton(*row, tr("Open Download Page"), UpdateAnswer::openDownloadPage);
    return bar;
}

void UpdateWindow::addButton(QBoxLayout& row, const QString& title, UpdateAnswer answer)
{
    add(row, *new PushButton(title, PushButton::Look::bordered, theme_), answer);
}

void UpdateWindow::addProminentButton(QBoxLayout& row, const QString& title, UpdateAnswer answer)
{
    prominent_ = new PushButton(title, PushButton::Look::borderedProminent, theme_);
    add(row, *prominent_, answer);
}

void UpdateWindow::add(QBoxLayout& row, QAbstractButton& button, UpdateAnswer answer)
{
    connect(&button, &QAbstractButton::clicked, this, [this, answer] { reply(answer); });
    row.addWidget(&button);
}

void UpdateWindow::reply(UpdateAnswer answer)
{
    if (const auto handler = std::exchange(answer_, nullptr))
        handler(answer);
}

void UpdateWindow::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), theme_.colors().windowBackground);
}

void UpdateWindow::keyPressEvent(QKeyEvent* event)
{
    const auto key = static_cast<Qt::Key>(event->key());
    if (key == Qt::Key_Escape)
        return reply(UpdateAnswer::dismiss);
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (isReturn && !event->isAutoRepeat() && acceptsReturn_ && prominent_ != nullptr)
        return prominent_->click();
    if (notes_ == nullptr || !notes_->scroll(key))
        QWidget::keyPressEvent(event);
}

void UpdateWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    reply(UpdateAnswer::dismiss);
}

} // namespace tessel
