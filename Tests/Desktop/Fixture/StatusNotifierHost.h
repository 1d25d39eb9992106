#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Desktop.h"

namespace tessel::desktop {

/// One entry of the menu of a status item.
struct StatusMenuEntry {
    enum class Kind { enabled, disabled, separator };

    Kind kind = Kind::enabled;
    std::string label; ///< As it goes over the bus: an underscore that is one is doubled.

    bool operator==(const StatusMenuEntry&) const = default;
};

/// A menu bar without a window (freedesktop.org StatusNotifierItem): the watcher that items register with,
/// and a host that shows the first of them. With the end of this object it is gone. All that waits throws
/// `DesktopFailure` when the usual deadline has passed.
class StatusNotifierHost {
public:
    /// There must be a session bus.
    explicit StatusNotifierHost(Desktop& desktop);

    /// Takes the watcher's name on the session bus, and returns when it has it.
    void start();
    /// Gives the name up, as a menu bar does that ends; `start` is then the next one.
    void stop();

    /// Waits until an item is registered. All below is about the first one.
    void awaitItem();
    void awaitNoItem();

    /// A property of the item that is a text.
    std::string property(const std::string& name);
    /// The pixels of the item's icon, 0xAARRGGBB by rows from the top. Empty: it has none of this size.
    std::vector<std::uint32_t> icon(int size);
    /// Calls the item's `Activate`, with pixels from the top left corner of the root window.
    void activate(int x, int y);

    /// Opens the menu as a host does: it is told of that, and read.
    void openMenu();
    /// The entries of the open menu. What the menu has announced since it was opened is in it.
    std::vector<StatusMenuEntry> menu();
    /// Waits until an entry of the open menu has this label.
    void awaitLabel(const std::string& label);
    /// Clicks the entry of the open menu that has this label, and returns when that was answered. Throws
    /// where there is no such entry, and where the answer is an error.
    void click(const std::string& label);

private:
    std::string tell(const std::string& line);

    ChildProcess process_;
};

} // namespace tessel::desktop
