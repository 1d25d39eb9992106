#include "Panel/RowContextMenu.h"

#include <QtWidgets/QStyleOption>

#include "Panel/PanelStyle.h"
#include "Support/MenuStyle.h"

namespace tessel {

using namespace panelStyle;

RowContextMenu::RowContextMenu(Pin pin, WindowBlending blending, const Actions& actions, QWidget* parent)
    : QMenu(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    QColor fill = menu::fill();
    if (blending == WindowBlending::translucent)
        fill.setAlphaF(menu::opacity);
    MenuStyle::apply(*this, {fill, white(menu::outlineOpacity)});

    addAction(tr("Copy"), this, actions.onCopy);
    addAction(pin == Pin::pinned ? tr("Unpin") : tr("Pin"), this, actions.onPinToggle);
    deleteAction_ = addAction(tr("Delete"), this, actions.onDelete);
}

void RowContextMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    QMenu::initStyleOption(option, action);
    const bool isDestructive = action == deleteAction_;
    option->palette.setColor(QPalette::Text,
                             isDestructive ? menu::destructiveText() : white(menu::textOpacity));
    if (isDestructive)
        option->palette.setColor(QPalette::Highlight, menu::destructiveHighlight());
    option->palette.setColor(QPalette::HighlightedText, Qt::white);
}

} // namespace tessel
