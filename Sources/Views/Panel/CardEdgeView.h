#pragma once

#include <memory>

#include <QtWidgets/QWidget>

namespace tessel {

class PanelArtwork;

/// Lies on top of the panel's content and gives it the shape of the card: cuts the corners off everything
/// beneath it, and draws the outline. It does not take part in mouse events.
class CardEdgeView : public QWidget {
    Q_OBJECT

public:
    CardEdgeView(std::shared_ptr<PanelArtwork> artwork, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::shared_ptr<PanelArtwork> artwork_;
};

} // namespace tessel
