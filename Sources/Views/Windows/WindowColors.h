#pragma once

#include <QtGui/QColor>

#include "Appearance.h"

class QPalette;

namespace tessel {

/// The colours of the settings, about and onboarding windows.
struct WindowColors {
    QColor windowBackground; ///< Opaque.
    QColor accent;           ///< Opaque.
    QColor primaryText;
    QColor secondaryText;
    QColor tertiaryText;
    QColor cardFill;
    QColor outline; ///< Of cards and windows.
    QColor closeFill;
    QColor closeOutline;
    QColor keyLabelFill;
    QColor linkText;
    QColor firstCircle; ///< Of the drifting background.
    QColor secondCircle;

    bool operator==(const WindowColors&) const = default;
};

/// The colours for a user's taste. What the system names no colour for comes from `palette`, as far as that
/// is of the same scheme.
WindowColors windowColors(const AppearanceSettings& settings, const QPalette& palette);

} // namespace tessel
