#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "Geometry.h"
#include "HotKey/HotKeyPreset.h"
#include "StatusItem.h"

namespace tessel {

class AppState;

/// What the menu-bar extra is called.
inline constexpr std::string_view menuBarTitle = "Clipboard";
/// The name of the system's symbol that it shows.
inline constexpr std::string_view menuBarSymbolName = "document.on.clipboard.fill";

/// One row of the menu-bar extra's menu.
struct MenuBarRow {
    StatusMenuRow::Kind kind = StatusMenuRow::Kind::action;
    std::string_view title;
    std::string_view caption;              ///< Of the header only.
    void (AppState::*command)() = nullptr; ///< What choosing it does. Null where it cannot be chosen.

    bool operator==(const MenuBarRow&) const = default;
};

inline constexpr std::size_t menuBarRowCount = 9;

/// The rows of the menu, from the top. The header tells the combination that opens the history.
std::array<MenuBarRow, menuBarRowCount> menuBarRows(HotKeyPreset preset);

/// The origin of a menu that is opened by a click at that point. It hangs down from it or, where there is no
/// room, stands on it, so that the click does not fall on a row; then it is moved inside the visible frame,
/// and begins where a bar ends that the click was on. Where it does not fit, its left and top edges do.
Point menuOrigin(Point click, Size menu, const Rect& visibleFrame);

} // namespace tessel
