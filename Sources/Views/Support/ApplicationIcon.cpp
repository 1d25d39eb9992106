#include "Support/ApplicationIcon.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtSvg/QSvgRenderer>

namespace tessel {

QIcon applicationIcon()
{
    QSvgRenderer drawing(QStringLiteral(":/icons/org.tesselclipboard.TesselClipboard.svg"));
    QIcon icon;
    for (const int side : {16, 32, 48, 64}) { // Pixels.
        QPixmap picture(side, side);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace tessel
