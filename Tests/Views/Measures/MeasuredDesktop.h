#pragma once

#include "Measures/MeasuredPicture.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

/// The desktop with the program under a certain tint, whose panel is drawn at a certain scale.
class TintedDesktop : public PanelDesktop {
public:
    TintedDesktop(double tint, double scale);

    QImage drawnOver(const QColor& backdrop) const;

private:
    double scale_;
};

/// Under a tint of 1 no material shines through: the card is black.
class BlackDesktop : public TintedDesktop {
public:
    explicit BlackDesktop(double scale)
        : TintedDesktop(1, scale)
    {}

    MeasuredPicture picture() const { return MeasuredPicture(drawnOver(Qt::black)); }
    /// Scrolls the list as a touchpad does, in points.
    void scrollBy(int distance);
};

} // namespace tessel::test
