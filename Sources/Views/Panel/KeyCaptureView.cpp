#include "Panel/KeyCaptureView.h"

#include <QtCore/QMetaObject>
#include <QtGui/QKeyEvent>

#include "Panel/PanelKeyMap.h"
#include "VirtualKeyEvent.h"

namespace tessel {

namespace {

/// Taken by value: the action may close the panel, or be replaced, while it runs.
void runIfPresent(std::function<void()> action)
{
    if (action)
        action();
}

} // namespace

KeyCaptureView::KeyCaptureView(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void KeyCaptureView::ensureFocus()
{
    if (!isInWindow() || window()->focusWidget() == this)
        return;
    // The call is dropped when this view is gone by then.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (isInWindow())
                setFocus(Qt::OtherFocusReason);
        },
        Qt::QueuedConnection);
}

bool KeyCaptureView::event(QEvent* event)
{
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::ParentChange)
        ensureFocus();
    return isHandled;
}

void KeyCaptureView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    ensureFocus();
}

void KeyCaptureView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    emit focusDidArrive();
}

void KeyCaptureView::keyPressEvent(QKeyEvent* event)
{
    const auto action = panelAction(virtualKeyEvent(*event));
    if (!action)
        return QWidget::keyPressEvent(event);

    switch (*action) {
    case PanelAction::up:
        return runIfPresent(onUp);
    case PanelAction::down:
        return runIfPresent(onDown);
    case PanelAction::enter:
        // One press confirms once, however long the key is held.
        return event->isAutoRepeat() ? void() : runIfPresent(onEnter);
    case PanelAction::escape:
        return runIfPresent(onEscape);
    case PanelAction::deleteItem:
        return runIfPresent(onDelete);
    case PanelAction::pinToggle:
        return runIfPresent(onPinToggle);
    }
}

} // namespace tessel
