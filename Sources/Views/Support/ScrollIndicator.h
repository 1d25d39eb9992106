#pragma once

#include <optional>

#include <QtCore/QRectF>
#include <QtGui/QColor>

class QPainter;

namespace tessel {

class ScrollPosition;

/// An overlaid scroll indicator: a knob that shows which part is in view, and can be dragged.
class ScrollIndicator {
public:
    /// A view of that width in points. The indicator is at the end of its lines.
    struct View {
        double width;
        Qt::LayoutDirection direction;
    };

    /// Where the knob is. None: everything is in view.
    static std::optional<QRectF> knob(const ScrollPosition& position, const View& view);
    /// The strip in which a press takes hold of the indicator. None: everything is in view.
    static std::optional<QRectF> track(const ScrollPosition& position, const View& view);

    bool isHeld() const { return hold_.has_value(); }
    /// Takes hold of the knob at that height of the view; beside it, the knob first jumps there.
    void press(double y, const ScrollPosition& position);
    void release() { hold_.reset(); }
    /// The offset of a content whose held knob has been dragged to that height.
    double offsetAt(double y, const ScrollPosition& position) const;

    /// `color` is opaque; the knob lets what is beneath it shine through.
    void paint(QPainter& painter, const ScrollPosition& position, const View& view, QColor color) const;

private:
    /// The distance from the knob's top to where it is held.
    std::optional<double> hold_;
};

} // namespace tessel
