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

    /// `theme` must outlive this object.
    WindowLabel(const QString& text, const Text& style, Color color, const WindowTheme& theme,
                QWidget* parent = nullptr);
};

} // namespace tessel
