#include "Panel/PanelLabel.h"

#include "Panel/PanelFonts.h"
#include "Panel/PanelStyle.h"

namespace tessel {

PanelLabel::PanelLabel(const QString& text, const TextStyle& style, double opacity, QWidget* parent,
                       Purpose purpose)
    : QLabel(parent)
    , purpose_(purpose)
{
    setTextFormat(Qt::PlainText);
    setFont(style.font);
    QPalette palette;
    palette.setColor(QPalette::WindowText, panelStyle::white(opacity));
    setPalette(palette);
    setText(text);
}

} // namespace tessel
