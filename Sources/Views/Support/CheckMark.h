#pragma once

#include <QtCore/QRectF>

class QColor;
class QPainter;

namespace tessel {

/// A check mark with round ends that fits into a square.
void paintCheckMark(QPainter& painter, const QRectF& square, const QColor& color);

} // namespace tessel
