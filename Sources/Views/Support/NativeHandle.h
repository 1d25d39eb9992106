#pragma once

#include <cstdint>

#include <QtWidgets/QWidget>

#include "NativeWindows.h"

namespace tessel {

/// The system's handle of a widget's window, which is created if there is none yet.
inline NativeWindowHandle handleOf(const QWidget& window)
{
    return NativeWindowHandle{static_cast<std::uintptr_t>(window.winId())};
}

} // namespace tessel
