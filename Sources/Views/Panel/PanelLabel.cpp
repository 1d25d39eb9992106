#include "Panel/PanelLabel.h"

#include <QtWidgets/QLabel>

#include "Panel/PanelFonts.h"
#include "Panel/PanelStyle.h"

namespace tessel {

QLabel* makePanelLabel(const QString& text, const TextStyle& style, double opacity, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setFont(style.font);
    QPalette palette;
    palette.setColor(QPalette::WindowText, panelStyle::white(opacity));
    label->setPalette(palette);
    label->setText(text);
    return label;
}

} // namespace tessel
