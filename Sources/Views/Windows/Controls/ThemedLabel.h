#pragma once

#include <QtWidgets/QLabel>

#include "Support/TextStyle.h"
#include "Windows/WindowColors.h"

namespace tessel {

class WindowTheme;

/// A plain text in one of the windows' colours, which follows the theme. It begins where the interface's
/// lines begin, whatever its own direction.
class ThemedLabel final : public QLabel {
    Q_OBJECT

public:
    using Color = QColor WindowColors::*;

    /// `theme` must outlive this object.
    ThemedLabel(const QString& text, const Text& style, Color color, const WindowTheme& theme,
                QWidget* parent = nullptr);

private:
    void applyColor();

    Color color_;
    const WindowTheme& theme_;
};

} // namespace tessel
