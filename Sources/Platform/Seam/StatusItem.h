#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Appearance.h"
#include "Geometry.h"
#include "Token.h"

namespace tessel {

/// One row of a status item's menu.
struct StatusMenuRow {
    enum class Kind {
        header,    ///< Two texts, one below the other, that cannot be chosen.
        action,    ///< A text that can be chosen.
        separator, ///< A line.
    };

    Kind kind = Kind::action;
    std::string title;            ///< UTF-8, in the user's language. Empty in a separator.
    std::string caption;          ///< The second text of a header, smaller and dimmed.
    std::function<void()> chosen; ///< Runs on the main thread. Of an action only.
};

/// A square picture of the item's symbol.
struct StatusIcon {
    int size = 0; ///< Pixels along each side.
    /// `size * size` pixels by rows from the top, 0xAARRGGBB, not premultiplied.
    std::vector<std::uint32_t> pixels;
};

/// What a status item is, apart from its menu.
struct StatusItemDescription {
    std::string title;      ///< UTF-8; what assistive programs and tool tips call it.
    std::string symbolName; ///< The name of the system's symbol, where the system has symbols.
    /// Draws the symbol, `pixels` large, to be seen on a panel of this scheme, where the system has none.
    std::function<StatusIcon(int pixels, ColorScheme panel)> drawIcon;
    /// Opens the menu as a window of our own at this point of the screen, or closes the one that is open,
    /// for a system that shows the item but leaves its menu to us.
    std::function<void(Point)> openMenu;
};

/// The application's item in the menu bar (`NSStatusItem`; freedesktop.org StatusNotifierItem).
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// Shows the item as soon as there is a menu bar, and again whenever a new one comes. Called once.
    virtual void show(StatusItemDescription description) = 0;
    /// The rows of the menu that a plain click opens, from the top. They replace those before, also while the
    /// menu is open.
    virtual void setMenu(std::vector<StatusMenuRow> rows) = 0;
    /// True while a menu bar shows the item.
    virtual bool isShown() const = 0;
    /// Runs after `isShown` has changed, on the main thread.
    virtual Token observe(std::function<void()> didChange) = 0;
};

} // namespace tessel
