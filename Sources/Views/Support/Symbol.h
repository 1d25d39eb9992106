#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>

class QString;
class QSizeF;

namespace tessel {

/// Draws a symbol, named after its file among the resources, in one colour. `size` is in points; the picture
/// has `devicePixelRatio` pixels to a point. The symbol keeps its proportions and is centred.
QImage renderedSymbol(const QString& name, const QSizeF& size, const QColor& color, double devicePixelRatio);

} // namespace tessel
