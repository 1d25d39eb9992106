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
    if (!start_->isDrag && way.manhattanLength() < QApplication::startDragDistance())
        return;
    if (isLeftToSystem_) {
        start_.reset();
        window_.windowHandle()->startSystemMove();
        return;
    }
    start_->isDrag = true;
    window_.move(start_->window + way);
}

} // namespace tessel
