#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "Desktop/StatusNotifier/MenuTypes.h"
#include "StatusItem.h"

namespace tessel {

/// One entry of the exported menu, with its number and the properties that are not at their default.
struct MenuEntry {
    int id = 0;
    QVariantMap properties;
    std::function<void()> chosen; ///< Empty: it cannot be chosen.
};

/// The rows of a menu as entries of com.canonical.dbusmenu: one for each separator and each text. A header
/// makes two that cannot be chosen.
class MenuEntries {
public:
    /// Puts these rows in the place of those before. The entries keep their numbers while they are as many,
    /// and of the same kinds; else all get new ones, so that who has read the menu before chooses nothing
    /// that was not in it. Returns what has changed of the entries that were kept. None: they are new.
    std::optional<MenuPropertiesList> replace(std::vector<StatusMenuRow> rows);

    const std::vector<MenuEntry>& all() const { return entries_; }
    /// Null: there is no such entry.
    const MenuEntry* find(int id) const;

private:
    std::vector<MenuEntry> entries_;
    int lastID_ = 0;
};

} // namespace tessel
