#pragma once

#include <QtWidgets/QWidget>

#include "X11/X11Room.h"

namespace tessel {

/// A window as the panel is one.
class TestPanel : public QWidget {
public:
    TestPanel()
        : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    {
        resize(460, 220);
        move(200, 300);
    }
    NativeWindowHandle handle() const { return NativeWindowHandle{winId()}; }
    xcb_window_t id() const { return static_cast<xcb_window_t>(winId()); }
    /// Prepares it the way its controller does.
    void prepare(const X11Room& room) const
    {
        room.nativeWindows->preparePanel(handle(), {true, true, true, false, false});
    }
    /// Shows it the way the program does.
    void open(const X11Room& room)
    {
        show();
        room.application->activate(IgnoringOtherApps::yes);
        room.nativeWindows->makeKeyAndOrderFront(handle());
    }
};

} // namespace tessel
