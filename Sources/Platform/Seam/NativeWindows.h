#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "PixelRectangle.h"
#include "ScreenPicture.h"
#include "Token.h"

namespace tessel {

/// The system's handle of a window that the view toolkit has created (an X11 window id; an `NSView*`).
enum class NativeWindowHandle : std::uintptr_t {};

/// What the panel asks of the system beyond what the view toolkit offers.
struct PanelTraits {
    bool floatsAboveOthers = false; ///< Level 3, the floating window level.
    bool joinsAllSpaces = false;    ///< Shown on every desktop.
    bool overFullScreen = false;    ///< Shown beside full-screen windows.
    bool hasShadow = false;         ///< The system's window shadow.
    bool becomesMain = false;       ///< May become the main window.
};

/// The window system as far as the view toolkit does not cover it.
class NativeWindows {
public:
    virtual ~NativeWindows() = default;

    /// Gives a panel window its traits. Called once, after the window has been created and before it is first
    /// shown.
    virtual void preparePanel(NativeWindowHandle window, const PanelTraits& traits) = 0;
    /// Raises a window that is being shown and gives it the keyboard focus, on the user's behalf.
    virtual void makeKeyAndOrderFront(NativeWindowHandle window) = 0;
    /// Raises a window that is being shown, and leaves the keyboard focus where it is (`orderFront:`). It is
    /// the one that the application's activation gives the focus to.
    virtual void orderFront(NativeWindowHandle window) = 0;
    /// True while a compositing manager blends translucent windows (`_NET_WM_CM_Sn`, EWMH).
    virtual bool blendsTranslucentWindows() const = 0;
    /// Tells when that has changed.
    virtual Token observeBlending(std::function<void()> didChange) = 0;

    /// Tells when a window that is being shown is wholly covered by others, and when it no longer is, as far
    /// as the system knows (`NSWindowOcclusionStateVisible`). Called before the window is shown, and again
    /// when it is shown again.
    virtual Token observeOcclusion(NativeWindowHandle window,
                                   std::function<void(bool isCovered)> didChange) = 0;

    /// True while a compositing manager blurs what is behind windows that ask for it
    /// (`_KDE_NET_WM_BLUR_BEHIND_REGION` on the root window).
    virtual bool blursBehindWindows() const = 0;
    /// Asks for that in a part of the window. Empty: nowhere any more.
    virtual void blurBehind(NativeWindowHandle window, const PixelRegion& region) = 0;
    /// Cuts a window to a shape. Empty: it is a whole rectangle again.
    virtual void cutToShape(NativeWindowHandle window, const PixelRegion& shape) = 0;
    /// What the screen shows at this moment where the window is or will be, in the order of the requests.
    /// Waits for the window system once, however many they are. Pictures that cannot be taken are empty, all
    /// of them where clients do not see the screen (Wayland).
    virtual std::vector<ScreenPicture> picturesOfScreen(NativeWindowHandle window,
                                                        std::span<const ScreenPictureRequest> requests) = 0;
};

} // namespace tessel
