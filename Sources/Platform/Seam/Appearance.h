#pragma once

#include <functional>
#include <optional>

#include "Token.h"

namespace tessel {

/// Whether windows are dark on light or light on dark.
enum class ColorScheme { light, dark };

/// A colour of the system, each part 0 to 1 (sRGB).
struct SystemColor {
    double red = 0;
    double green = 0;
    double blue = 0;

    bool operator==(const SystemColor&) const = default;
};

/// How the user wants windows to look (`NSApp.effectiveAppearance`, `NSColor.controlAccentColor`).
struct AppearanceSettings {
    ColorScheme colorScheme = ColorScheme::light;
    /// None: the system has no accent colour.
    std::optional<SystemColor> accentColor;
    /// Nothing is to move that does not have to.
    bool reducesMotion = false;

    bool operator==(const AppearanceSettings&) const = default;
};

/// What the system knows of the user's taste.
class Appearance {
public:
    virtual ~Appearance() = default;

    /// Known at any time without asking.
    virtual const AppearanceSettings& settings() const = 0;
    /// Runs after the settings have changed, on the main thread.
    virtual Token observe(std::function<void()> didChange) = 0;
};

} // namespace tessel
