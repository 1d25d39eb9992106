#include "MenuBar/MenuBarExtra.h"

#include <utility>

#include "AppState.h"
#include "MenuBar/MenuBarIcon.h"
#include "MenuBar/MenuBarRows.h"
#include "Panel/PanelGeometry.h"
#include "ScreenSpace.h"
#include "Support/CoreText.h"

namespace tessel {

MenuBarExtra::MenuBarExtra(AppState& appState, StatusItem& item, const WindowTheme& theme,
                           const Screens& screens)
    : appState_(appState.weak_from_this())
    , item_(item)
    , theme_(theme)
    , screens_(screens)
    , shownPreset_(*appState.hotKeyPreset)
    , observation_(appState.observe([this] { updateLater(); }))
{
    item_.setMenu(rows());
    item_.show({.title = coreText(menuBarTitle).toStdString(),
                .symbolName = std::string(menuBarSymbolName),
                .drawIcon = menuBarIcon,
                .openMenu = [weak = QPointer(this)](Point click) {
                    if (weak)
                        weak->clickAt(click);
                }});
}

MenuBarExtra::~MenuBarExtra()
{
    delete menu_;
}

void MenuBarExtra::updateLater()
{
    if (std::exchange(updateIsPending_, true))
        return;
    QMetaObject::invokeMethod(this, &MenuBarExtra::update, Qt::QueuedConnection);
}

void MenuBarExtra::update()
{
    updateIsPending_ = false;
    const auto appState = appState_.lock();
    if (!appState || std::exchange(shownPreset_, *appState->hotKeyPreset) == *appState->hotKeyPreset)
        return;
    item_.setMenu(rows());
    if (menu_)
        menu_->setCaption(rows().front().caption);
}

std::vector<StatusMenuRow> MenuBarExtra::rows() const
{
    std::vector<StatusMenuRow> result;
    for (const MenuBarRow& row : menuBarRows(shownPreset_)) {
        result.push_back({.kind = row.kind,
                          .title = row.title.empty() ? "" : coreText(row.title).toStdString(),
                          .caption = row.caption.empty() ? "" : coreText(row.caption).toStdString(),
                          .chosen = run(row.command)});
    }
    return result;
}

std::function<void()> MenuBarExtra::run(void (AppState::*command)()) const
{
    if (command == nullptr)
        return {};
    return [weak = appState_, command] {
        if (const auto appState = weak.lock())
            (*appState.*command)();
    };
}

void MenuBarExtra::clickAt(Point click)
{
    // The menu sees no click outside itself before the pointer is its own, or where somebody else holds it.
    if (menu_) {
        menu_->close();
        return;
    }
    const auto screen = screenInUse(click, screens_.screens(), screens_.mainScreen());
    if (!screen)
        return;
    menu_ = new MenuBarMenu(rows(), theme_);
    menu_->setAccessibleName(coreText(menuBarTitle));
    menu_->ensurePolished();
    const QSize extent = menu_->sizeHint();
    const Size size = {static_cast<double>(extent.width()), static_cast<double>(extent.height())};
    const Rect frame = {menuOrigin(click, size, screen->visibleFrame), size};
    menu_->popup(screenSpace::toToolkit(frame).topLeft());
}

} // namespace tessel
