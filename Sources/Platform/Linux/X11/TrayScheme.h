#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "Appearance.h"
#include "ScreenPicture.h"

namespace tessel {

/// Whether a system tray is dark, by the colours that it says its icons shall have
/// (`_NET_SYSTEM_TRAY_COLORS`: red, green and blue of the usual one first, 0 to 65535). None: it does not
/// say.
std::optional<ColorScheme> schemeOfTrayColors(std::span<const std::uint32_t> units);

/// Whether it is dark around an icon, by the outermost pixels of its picture on the screen, which an icon
/// leaves free. None: there is no picture.
std::optional<ColorScheme> schemeAround(const ScreenPicture& picture);

} // namespace tessel
