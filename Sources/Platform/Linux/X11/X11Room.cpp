#include "X11/X11Room.h"

#include <utility>

namespace tessel {

X11Room makeX11Room(X11RoomNeeds needs)
{
    X11Room room;
    room.connection = std::make_shared<X11Connection>();
    room.userTime = std::make_shared<UserTime>();
    room.windowManager = std::make_shared<WindowManager>(room.connection);
    room.toolkitWindows = std::make_shared<ToolkitWindows>(room.connection, room.userTime);
    room.keyboard = std::make_shared<X11Keyboard>(room.connection);
    room.hotKeyCenter =
        std::make_shared<X11HotKeyCenter>(room.connection, room.keyboard, room.toolkitWindows, room.userTime);
    room.accessibilityTrust =
        std::make_shared<X11AccessibilityTrust>(*room.connection, std::move(needs.showTrustPrompt));
    room.keyStrokes =
        std::make_shared<X11KeyStrokes>(room.connection, room.keyboard, room.hotKeyCenter,
                                        std::move(needs.offerPrimary), std::move(needs.whenAvailable));
    room.workspace = std::make_shared<X11Workspace>(
        room.connection, room.windowManager, room.toolkitWindows, room.userTime, X11Workspace::launchDetached,
        [strokes = std::weak_ptr(room.keyStrokes), trust = room.accessibilityTrust] {
            const auto keyStrokes = strokes.lock();
            if (keyStrokes && trust->isProcessTrusted())
                keyStrokes->targetWillGetFocus();
        });
    room.eventMonitors = std::make_shared<QtEventMonitors>();
    room.screens = std::make_shared<X11Screens>(room.connection, room.windowManager);
    room.nativeWindows = std::make_shared<X11NativeWindows>(room.connection, room.windowManager,
                                                            room.toolkitWindows, room.userTime);
    room.application = std::make_shared<X11Application>(room.connection, room.windowManager,
                                                        room.toolkitWindows, room.nativeWindows);
    return room;
}

} // namespace tessel
