#include "Measures/MeasuredDesktop.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

namespace tessel::test {

TintedDesktop::TintedDesktop(double tint, double scale)
    : scale_(scale)
{
    defaults->setDouble(AppState::panelOpacityKey, tint);
    relaunch();
}

QImage TintedDesktop::drawnOver(const QColor& backdrop) const
{
    QImage image((QSizeF(window().size()) * scale_).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale_);
    image.fill(backdrop);
    window().render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

void BlackDesktop::scrollBy(int distance)
{
    const QPointF place = list().rect().center();
    QWheelEvent event(place, list().mapToGlobal(place), QPoint(0, -distance), QPoint(), Qt::NoButton,
                      Qt::NoModifier, Qt::ScrollUpdate, false);
    QApplication::sendEvent(&list(), &event);
}

} // namespace tessel::test
