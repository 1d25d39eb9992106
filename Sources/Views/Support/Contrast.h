#pragma once

class QColor;

namespace tessel {

/// The contrast of two opaque colours, 1 to 21 (WCAG 2.2, "contrast ratio").
double contrast(const QColor& one, const QColor& other);

} // namespace tessel
