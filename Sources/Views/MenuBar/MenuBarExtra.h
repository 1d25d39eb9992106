#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include "Geometry.h"
#include "HotKey/HotKeyPreset.h"
#include "MenuBar/MenuBarMenu.h"
#include "StatusItem.h"
#include "Token.h"

namespace tessel {

class AppState;
class Screens;
class WindowTheme;

/// The program's item in the menu bar: its icon and its menu, whose header follows the hot key's preset. What
/// else changes in the state costs it a comparison.
class MenuBarExtra final : public QObject {
    Q_OBJECT

public:
    /// Shows the item. All of these must outlive this object, except for the state.
    MenuBarExtra(AppState& appState, StatusItem& item, const WindowTheme& theme, const Screens& screens);
    ~MenuBarExtra() override;

    /// The menu as a window of our own. Null while it is closed.
    MenuBarMenu* openMenu() const { return menu_; }

private:
    void updateLater();
    void update();
    /// Opens the menu there, or closes the one that is open.
    void clickAt(Point click);
    std::vector<StatusMenuRow> rows() const;
    std::function<void()> run(void (AppState::*command)()) const;

    std::weak_ptr<AppState> appState_;
    StatusItem& item_;
    const WindowTheme& theme_;
    const Screens& screens_;
    QPointer<MenuBarMenu> menu_;
    HotKeyPreset shownPreset_;
    bool updateIsPending_ = false;
    Token observation_;
};

} // namespace tessel
