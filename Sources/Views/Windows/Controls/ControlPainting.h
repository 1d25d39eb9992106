#pragma once

#include <QtCore/QRectF>

class QColor;
class QPainter;

namespace tessel {

struct EdgeColors;

/// Fills a rounded shape, whose outer edge is moved to whole device pixels, and draws a line of one device
/// pixel inside that edge.
void paintBezel(QPainter& painter, const QRectF& rectangle, double radius, const QColor& fill,
                const EdgeColors& edge);

/// Two chevrons, one above the other, that point up and down, in the middle of a rectangle.
void paintDoubleChevron(QPainter& painter, const QRectF& rectangle, const QColor& color);

} // namespace tessel
