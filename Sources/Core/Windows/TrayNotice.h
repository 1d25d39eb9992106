#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "DefaultsStore.h"
#include "MainQueue.h"
#include "Token.h"

namespace tessel {

/// Decides when the user is told how to reach the program on a desktop that has no menu bar for its item:
/// once, and only where there is still none some time after the start. Later the user knows.
class TrayNotice {
public:
    /// How long a menu bar may take to come, in seconds: at login it may start after this program.
    static constexpr double patience = 10;
    /// Under this key 1 is remembered once the user has been told.
    static constexpr std::string_view shownKey = "trayNoticeShown";

    struct Needs {
        std::shared_ptr<MainQueue> queue;
        /// Must outlive this object.
        DefaultsStore& remembered;
        /// Whether a menu bar shows the program's item.
        std::function<bool()> isItemShown;
        /// Whether a window of the program is open that the notice would be in the way of. It waits then.
        std::function<bool()> isAnotherWindowOpen;
        /// Has a function called after the answer to that has changed.
        std::function<Token(std::function<void()>)> observeItem;
        /// Tells the user. Must not wait.
        std::function<void()> show;
        /// Takes back what the user was told, if it is still to be seen: a menu bar has come after all.
        std::function<void()> hide;
    };

    /// Begins to wait, unless the user has been told before.
    explicit TrayNotice(Needs needs);

private:
    void decide();
    void itemDidChange();

    Needs needs_;
    Token timer_;
    Token itemObservation_;
};

} // namespace tessel
