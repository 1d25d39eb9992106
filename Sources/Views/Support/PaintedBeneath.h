#pragma once

#include <QtGui/QImage>

class QWidget;

namespace tessel {

/// What a window shows beneath one of its views, in device pixels: its background, that of each view around
/// this one, and the views behind it. May be called while the view paints itself.
QImage paintedBeneath(const QWidget& view);

} // namespace tessel
