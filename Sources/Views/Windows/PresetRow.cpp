#include "Windows/PresetRow.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <cstdlib>

#include "Windows/Controls/PushButton.h"

namespace tessel {

namespace {

// In points.
constexpr int spacing = 6;
constexpr int verticalPadding = 1;

/// How far a turn of the wheel scrolls, in points. A touchpad says it in points itself.
QPoint scrolled(const QWheelEvent& event)
{
    constexpr int eighthsPerPoint = 3; // 40 points for one notch.
    return event.pixelDelta().isNull() ? event.angleDelta() / eighthsPerPoint : event.pixelDelta();
}

} // namespace

PresetRow::PresetRow(const WindowTheme& theme, QWidget* parent)
    : ContentScrollArea(parent)
    , theme_(theme)
{
    auto* content = new QWidget;
    row_ = new QHBoxLayout(content);
    row_->setContentsMargins(0, verticalPadding, 0, verticalPadding);
    row_->setSpacing(spacing);
    row_->addStretch();
    setContent(content);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PresetRow::addChoice(const QString& title, const std::function<void()>& choose)
{
    auto* button =
        new PushButton(title, PushButton::Look::bordered, theme_, nullptr, PushButton::ControlSize::small);
    button->setCheckable(true);
    connect(button, &QAbstractButton::clicked, this, choose);
    row_->insertWidget(static_cast<int>(buttons_.size()), button);
    buttons_.push_back(button);
}

void PresetRow::setCurrent(std::size_t choice, bool isCurrent)
{
    PushButton& button = *buttons_.at(choice);
    const QSignalBlocker blocker(button);
    button.setChecked(isCurrent);
    button.setLook(isCurrent ? PushButton::Look::borderedProminent : PushButton::Look::bordered);
}

QSize PresetRow::sizeHint() const
{
    return widget()->sizeHint();
}

bool PresetRow::moveFocus(int distance)
{
    const auto focused = std::find_if(buttons_.begin(), buttons_.end(),
                                      [](const PushButton* button) { return button->hasFocus(); });
    if (focused == buttons_.end())
        return false;
    const auto next = (focused - buttons_.begin()) + distance;
    if (next < 0 || next >= std::ssize(buttons_))
        return false;
    buttons_[static_cast<std::size_t>(next)]->setFocus(distance > 0 ? Qt::TabFocusReason
                                                                    : Qt::BacktabFocusReason);
    return true;
}

void PresetRow::keyPressEvent(QKeyEvent* event)
{
    const int forwards = isRightToLeft() ? -1 : 1;
    if (event->key() == Qt::Key_Right)
        moveFocus(forwards);
    else if (event->key() == Qt::Key_Left)
        moveFocus(-forwards);
    else
        event->ignore();
}

bool PresetRow::scrollBy(int distance)
{
    const int before = horizontalScrollBar()->value();
    horizontalScrollBar()->setValue(before + distance);
    return horizontalScrollBar()->value() != before;
}

void PresetRow::wheelEvent(QWheelEvent* event)
{
    const QPoint way = scrolled(*event);
    const bool isSideways = std::abs(way.x()) > std::abs(way.y());
    // A mouse with one wheel scrolls the row, too, and at its ends whatever is around it.
    const int distance = isSideways ? (isRightToLeft() ? way.x() : -way.x()) : -way.y();
    event->setAccepted(scrollBy(distance) || isSideways);
}

} // namespace tessel
