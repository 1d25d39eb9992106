#include "Panel/ClipboardPanelWindow.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

#include "Panel/ClipboardPanelView.h"
#include "Panel/PanelStyle.h"
#include "Support/ContinuousCorners.h"

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

void ClipboardPanelWindow::setWindowBlending(WindowBlending blending)
{
    if (contentView_ != nullptr)
        contentView_->setWindowBlending(blending);
    if (blending == blending_)
        return;
    blending_ = blending;
    shapeCorners();
}

void ClipboardPanelWindow::shapeCorners()
{
    if (blending_ == WindowBlending::translucent)
        return clearMask();
    const QPainterPath card = continuousRoundedRectangle(rect(), panelStyle::card::cornerRadius);
    setMask(QRegion(card.toFillPolygon().toPolygon()));
}

bool ClipboardPanelWindow::event(QEvent* event)
{
    const bool isHandled = QWidget::event(event);
    // The toolkit has cut the shape in pixels of the screen before, and keeps it as long as its points are
    // the same.
    if (event->type() == QEvent::ScreenChangeInternal && windowHandle() != nullptr && !mask().isEmpty())
        windowHandle()->setMask(mask());
    return isHandled;
}

void ClipboardPanelWindow::resizeEvent(QResizeEvent*)
{
    if (contentView_ != nullptr)
        contentView_->setGeometry(rect());
    if (blending_ == WindowBlending::opaque)
        shapeCorners();
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
    const bool drags = dragging_ == Dragging::byBackground && event->button() == Qt::LeftButton;
    drag_ = drags ? std::optional(Drag{event->globalPosition().toPoint(), pos()}) : std::nullopt;
}

void ClipboardPanelWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (!drag_ || !event->buttons().testFlag(Qt::LeftButton))
        return;
    const QPoint way = event->globalPosition().toPoint() - drag_->pointer;
    if (way.manhattanLength() < QApplication::startDragDistance() && pos() == drag_->window)
        return;
    // The window manager moves windows best; without one we do.
    if (pos() == drag_->window && windowHandle()->startSystemMove())
        drag_.reset();
    else
        move(drag_->window + way);
}

void ClipboardPanelWindow::mouseReleaseEvent(QMouseEvent*)
{
    drag_.reset();
}

} // namespace tessel
