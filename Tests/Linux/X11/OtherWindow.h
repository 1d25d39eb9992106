#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QtCore/QSocketNotifier>
#include <xcb/xcb.h>

#include "Workspace.h"
#include "X11/Keymap.h"

namespace tessel {

/// A window of another application: a plain client that writes down the keys that it receives.
class OtherWindow {
public:
    struct Stroke {
        Keycode key = 0;
        std::uint16_t modifiers = 0; ///< The modifiers in force, without buttons and group.
        bool isPress = false;
        friend bool operator==(const Stroke&, const Stroke&) = default;
    };

    /// Not yet on screen. `windowClass` becomes both parts of WM_CLASS.
    explicit OtherWindow(const std::string& windowClass = "Editor");
    ~OtherWindow();
    OtherWindow(const OtherWindow&) = delete;
    OtherWindow& operator=(const OtherWindow&) = delete;

    xcb_window_t id() const { return window_; }
    ProcessIdentifier process() const { return ProcessIdentifier{window_}; }
    void show();
    /// Sets the focus as a program does that takes it by itself. Waits until the window can have it.
    void takeFocus();
    /// Gives the focus to a window inside this one, which is created for it.
    void takeFocusInside();
    /// Asks to be above the others.
    void raise();
    void closeWindow();
    void setProperty(const std::string& name, xcb_atom_t type, const std::vector<std::uint32_t>& units);
    /// The window manager answers with a property of the window (EWMH), once it has done what it was asked
    /// for before.
    void askForFrameExtents();
    bool hasFrameExtents();
    /// What a dock is: its type, and what it reserves.
    void becomeDock(const std::vector<std::uint32_t>& strutPartial);
    bool hasFocus() const { return hasFocus_; }
    bool isMapped() const { return isMapped_; }

    const std::vector<Stroke>& strokes() const { return strokes_; }
    /// How often that key was pressed with exactly these modifiers.
    int presses(Keycode key, std::uint16_t modifiers) const;
    /// How often any key was pressed that is no modifier.
    int presses() const;
    void forget() { strokes_.clear(); }
    /// Reads what the server has sent up to now.
    void synchronize();

    /// Another application's hot key. False: the combination is taken.
    bool grabKey(Keycode key, std::uint16_t modifiers);
    void ungrabKey(Keycode key, std::uint16_t modifiers);
    /// As a screen locker does. False: somebody else has the keyboard.
    bool grabKeyboard();
    void ungrabKeyboard();

private:
    bool isViewable();
    void read();
    void handle(const xcb_generic_event_t& event);
    xcb_atom_t atom(const std::string& name);

    xcb_connection_t* connection_ = nullptr;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    xcb_window_t window_ = XCB_WINDOW_NONE;
    xcb_window_t inner_ = XCB_WINDOW_NONE;
    bool hasFocus_ = false;
    bool isMapped_ = false;
    std::vector<Stroke> strokes_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

/// Modifier bits of the core protocol, for the expectations.
namespace Modifier {
inline constexpr std::uint16_t none = 0;
inline constexpr std::uint16_t shift = 1U << 0;
inline constexpr std::uint16_t lock = 1U << 1;
inline constexpr std::uint16_t control = 1U << 2;
inline constexpr std::uint16_t alt = 1U << 3;
inline constexpr std::uint16_t numLock = 1U << 4;
inline constexpr std::uint16_t super = 1U << 6;
/// How the server tells a client that does not know XKB that the second layout is in force.
inline constexpr std::uint16_t secondGroup = 1U << 7;
} // namespace Modifier

} // namespace tessel
