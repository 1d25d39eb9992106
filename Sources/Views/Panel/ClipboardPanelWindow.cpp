#include "Panel/ClipboardPanelWindow.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>

#include "Panel/ClipboardPanelView.h"

namespace tessel {

ClipboardPanelWindow::ClipboardPanelWindow()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
{
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(tr("Clipboard"));
}

void ClipboardPanelWindow::setContentView(ClipboardPanelView* view)
{
    view->setParent(this);
    view->setGeometry(rect());
    contentView_ = view;
}

bool ClipboardPanelWindow::event(QEvent* event)
{
    const bool isHandled = QWidget::event(event);
    const auto type = event->type();
    if (type == QEvent::Move || type == QEvent::Resize || type == QEvent::ScreenChangeInternal)
        followNativeWindow();
    return isHandled;
}

void ClipboardPanelWindow::followNativeWindow()
{
    if (isVisible() && geometry() != windowHandle()->geometry())
        setGeometry(windowHandle()->geometry());
}

void ClipboardPanelWindow::resizeEvent(QResizeEvent*)
{
    if (contentView_ != nullptr)
        contentView_->setGeometry(rect());
}

void ClipboardPanelWindow::closeEvent(QCloseEvent* event)
{
    // The window manager asks; the panel goes the way it always goes.
    event->ignore();
    if (contentView_ != nullptr)
        contentView_->closePanel();
}

void ClipboardPanelWindow::mousePressEvent(QMouseEvent* event)
{
    if (dragging_ == Dragging::byBackground)
        drag_.press(*event);
}

void ClipboardPanelWindow::mouseMoveEvent(QMouseEvent* event)
{
    drag_.move(*event);
}

void ClipboardPanelWindow::mouseReleaseEvent(QMouseEvent*)
{
    drag_.release();
}

} // namespace tessel
