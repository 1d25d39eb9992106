#pragma once

#include <array>
#include <memory>

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

namespace tessel {

class PanelArtwork;

inline constexpr std::size_t cardCornerCount = 4;

/// What the desktop shows in one corner of the card.
struct CardCorner {
    QImage picture; ///< In device pixels. Null: it is not known.
    QPoint place;   ///< Of the picture, in device pixels from the card's top left corner.
};
/// The top left one, the top right one, and those at the bottom.
using CardCorners = std::array<CardCorner, cardCornerCount>;

/// Lies on top of the panel's content and gives it the shape of the card: cuts the corners off everything
/// beneath it, and draws the outline. It does not take part in mouse events.
class CardEdgeView : public QWidget {
    Q_OBJECT

public:
    CardEdgeView(std::shared_ptr<PanelArtwork> artwork, QWidget* parent);

    /// What lies behind the corners, for a window through which nothing shines.
    void setDesktop(CardCorners corners);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::shared_ptr<PanelArtwork> artwork_;
    CardCorners desktop_;
};

} // namespace tessel
