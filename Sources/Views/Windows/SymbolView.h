#pragma once

#include <QtWidgets/QWidget>

#include "Support/SymbolPicture.h"
#include "Windows/WindowLabel.h"

namespace tessel {

class WindowTheme;

/// A symbol in a colour of the theme. It says nothing that the text beside it does not say.
class SymbolView final : public QWidget {
    Q_OBJECT

public:
    /// `name` is that of a file among the resources, `size` in points. `theme` must outlive this object.
    SymbolView(const QString& name, QSize size, WindowLabel::Color color, const WindowTheme& theme);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SymbolPicture symbol_;
    const WindowLabel::Color color_;
    const WindowTheme& theme_;
};

} // namespace tessel
