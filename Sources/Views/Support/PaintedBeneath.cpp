#include "Support/PaintedBeneath.h"

#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

namespace tessel {

namespace {

void paintBehindChild(QPainter& painter, const QWidget& view, QWidget& parent, const QWidget* child)
{
    const auto place = [&view](const QWidget& other) { return other.mapTo(view.window(), QPoint()); };
    const QPoint origin = place(view);
    parent.render(&painter, place(parent) - origin, {}, QWidget::DrawWindowBackground);
    for (QObject* object : parent.children()) {
        if (object == child)
            return;
        auto* sibling = qobject_cast<QWidget*>(object);
        if (sibling != nullptr && sibling->isVisible() && !sibling->isWindow())
            sibling->render(&painter, place(*sibling) - origin);
    }
}

void paintBeneath(QPainter& painter, const QWidget& view, const QWidget& child)
{
    QWidget* parent = child.parentWidget();
    if (child.isWindow() || parent == nullptr)
        return;
    paintBeneath(painter, view, *parent);
    paintBehindChild(painter, view, *parent, &child);
}

} // namespace

QImage paintedBeneath(const QWidget& view)
{
    const double ratio = view.devicePixelRatioF();
    const QSizeF pixels = QSizeF(view.size()) * ratio;
    QImage image(QRectF(QPointF(), pixels).toAlignedRect().size(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    QPainter painter(&image);
    paintBeneath(painter, view, view);
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

} // namespace tessel
