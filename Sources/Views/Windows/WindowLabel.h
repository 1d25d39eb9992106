#pragma once

#include <QtWidgets/QLabel>

#include "Windows/WindowColors.h"

namespace tessel {

struct Text;
class WindowTheme;

/// A plain text of a window, in a colour of its theme.
class WindowLabel : public QLabel {
    Q_OBJECT

public:
    using Color = QColor WindowColors::*;

    /// Whether a text that is wider than its place goes on in the next line.
    enum class Wrapping { off, on };

    /// `theme` must outlive this object.
    WindowLabel(const QString& text, const Text& style, Color color, const WindowTheme& theme,
                Wrapping wrapping = Wrapping::off);
};

} // namespace tessel
