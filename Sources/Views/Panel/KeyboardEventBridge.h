#pragma once

#include <functional>

class QWidget;

namespace tessel {

class KeyCaptureView;

/// The panel's six actions on their way to the view that captures its keys. Each may be absent.
struct KeyboardEventBridge {
    std::function<void()> onUp;
    std::function<void()> onDown;
    std::function<void()> onEnter;
    std::function<void()> onEscape;
    std::function<void()> onDelete;
    std::function<void()> onPinToggle;

    /// A view with these actions, owned by `parent`. It asks for the focus itself, when it is in a window.
    KeyCaptureView* makeView(QWidget* parent) const;
    /// Gives the view these actions, and the focus back.
    void updateView(KeyCaptureView& view) const;
};

} // namespace tessel
