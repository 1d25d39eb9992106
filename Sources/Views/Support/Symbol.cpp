#include "Support/Symbol.h"

#include <QtCore/QSizeF>
#include <QtCore/QString>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <cmath>

namespace tessel {

QImage renderedSymbol(const QString& name, const QSizeF& size, const QColor& color, double devicePixelRatio)
{
    const QSizeF pixels = size * devicePixelRatio;
    QImage image(
        QSize(static_cast<int>(std::ceil(pixels.width())), static_cast<int>(std::ceil(pixels.height()))),
        QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);

    QSvgRenderer symbol(QStringLiteral(":/symbols/") + name + QStringLiteral(".svg"));
    symbol.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    symbol.render(&painter, QRectF(QPointF(0, 0), pixels));
    // The file gives the shape, the colour is ours.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();

    image.setDevicePixelRatio(devicePixelRatio);
    return image;
}

} // namespace tessel
