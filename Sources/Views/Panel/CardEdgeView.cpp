#include "Panel/CardEdgeView.h"

#include <QtGui/QPainter>

#include <utility>

#include "Panel/PanelArtwork.h"
#include "Support/DevicePixels.h"

namespace tessel {

CardEdgeView::CardEdgeView(std::shared_ptr<PanelArtwork> artwork, QWidget* parent)
    : QWidget(parent)
    , artwork_(std::move(artwork))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CardEdgeView::setDesktop(CardCorners corners)
{
    desktop_ = std::move(corners);
    update();
}

void CardEdgeView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRectF card = alignedToDevicePixels(painter, rect());
    const PanelArtwork::Pictures& pictures = artwork_->pictures(tessel::devicePixelRatio(painter));
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    pictures.cardShape.drawCorners(painter, card);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    pictures.cardOutline.draw(painter, card);

    const double pixel = 1 / tessel::devicePixelRatio(painter);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    for (const CardCorner& corner : desktop_) {
        if (!corner.picture.isNull())
            painter.drawImage(QRectF(QPointF(corner.place) * pixel, QSizeF(corner.picture.size()) * pixel),
                              corner.picture);
    }
}

} // namespace tessel
