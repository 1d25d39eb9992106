#pragma once

#include <functional>
#include <memory>

#include "X11/QtEventMonitors.h"
#include "X11/ToolkitWindows.h"
#include "X11/UserTime.h"
#include "X11/WindowManager.h"
#include "X11/X11AccessibilityTrust.h"
#include "X11/X11Application.h"
#include "X11/X11Connection.h"
#include "X11/X11HotKeyCenter.h"
#include "X11/X11KeyStrokes.h"
#include "X11/X11Keyboard.h"
#include "X11/X11NativeWindows.h"
#include "X11/X11Screens.h"
#include "X11/X11Workspace.h"

namespace tessel {

/// Keys, windows and screens on X11, ready to be handed out. Made after `QApplication`, and destroyed before
/// it.
struct X11Room {
    std::shared_ptr<X11Connection> connection;
    std::shared_ptr<UserTime> userTime;
    std::shared_ptr<WindowManager> windowManager;
    std::shared_ptr<ToolkitWindows> toolkitWindows;
    std::shared_ptr<X11Keyboard> keyboard;
    std::shared_ptr<X11HotKeyCenter> hotKeyCenter;
    std::shared_ptr<X11Workspace> workspace;
    std::shared_ptr<X11AccessibilityTrust> accessibilityTrust;
    std::shared_ptr<X11KeyStrokes> keyStrokes;
    std::shared_ptr<QtEventMonitors> eventMonitors;
    std::shared_ptr<X11Screens> screens;
    std::shared_ptr<X11NativeWindows> nativeWindows;
    std::shared_ptr<X11Application> application;
};

/// What this room needs from others.
struct X11RoomNeeds {
    /// Shows a small window that says what is missing for a paste; must not wait.
    std::function<void()> showTrustPrompt;
    /// Begins to offer the text that is being pasted as PRIMARY.
    std::function<bool()> offerPrimary;
    /// Runs its argument, on a later turn of the loop, once others get what is being pasted.
    std::function<void(std::function<void()>)> whenAvailable = {};
};

/// Connects to the display that `DISPLAY` names. Without one everything in the room stays inert.
X11Room makeX11Room(X11RoomNeeds needs);

} // namespace tessel
