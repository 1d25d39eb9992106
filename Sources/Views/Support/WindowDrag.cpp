#include "Support/WindowDrag.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace tessel {

void WindowDrag::press(const QMouseEvent& event)
{
    start_.reset();
    if (event.button() == Qt::LeftButton)
        start_ = {event.globalPosition().toPoint(), window_.pos()};
}

void WindowDrag::move(const QMouseEvent& event)
{
    if (!start_ || !event.buttons().testFlag(Qt::LeftButton))
        return;
    const QPoint way = event.globalPosition().toPoint() - start_->pointer;
    if (way.manhattanLength() < QApplication::startDragDistance() && window_.pos() == start_->window)
        return;
    // The window manager moves windows best; without one we do.
    if (window_.pos() == start_->window && window_.windowHandle()->startSystemMove())
        start_.reset();
    else
        window_.move(start_->window + way);
}

} // namespace tessel
