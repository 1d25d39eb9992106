#include "Panel/RowContextMenu.h"

#include <QtWidgets/QStyleOption>

#include "Panel/PanelFonts.h"
#include "Panel/PanelMenuStyle.h"
#include "Panel/PanelStyle.h"

namespace tessel {

RowContextMenu::RowContextMenu(Pin pin, WindowBlending blending, const Actions& actions, QWidget* parent)
    : QMenu(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    if (blending == WindowBlending::translucent)
        setAttribute(Qt::WA_TranslucentBackground);
    setWindowFlag(Qt::FramelessWindowHint);
    setWindowFlag(Qt::NoDropShadowWindowHint);
    setFont(TextStyle(panelStyle::menu::item).font);
    auto* menuStyle = new PanelMenuStyle(blending);
    menuStyle->setParent(this);
    setStyle(menuStyle);

    addAction(tr("Copy"), this, actions.onCopy);
    addAction(pin == Pin::pinned ? tr("Unpin") : tr("Pin"), this, actions.onPinToggle);
    deleteAction_ = addAction(tr("Delete"), this, actions.onDelete);
}

void RowContextMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    QMenu::initStyleOption(option, action);
    PanelMenuStyle::setRole(*option, action == deleteAction_ ? PanelMenuStyle::Role::destructive
                                                             : PanelMenuStyle::Role::ordinary);
}

} // namespace tessel
