#pragma once

#include <QtWidgets/QGraphicsEffect>

namespace tessel {

/// Draws a view paler and beside its place.
class EntranceEffect final : public QGraphicsEffect {
    Q_OBJECT

public:
    /// `offset` is how far below its place the view begins, in points.
    explicit EntranceEffect(double offset);

    /// From 0, where the view begins and cannot be seen, to its place at 1. A spring may go beyond.
    void setProgress(double progress);

protected:
    QRectF boundingRectFor(const QRectF& source) const override;
    void draw(QPainter* painter) override;

private:
    double start_;
    double progress_ = 0;
};

} // namespace tessel
