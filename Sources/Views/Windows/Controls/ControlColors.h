#pragma once

#include <QtGui/QColor>

#include "Appearance.h"
#include "Support/MenuStyle.h"

namespace tessel {

struct WindowColors;

/// From the top of a shape to its bottom.
struct EdgeColors {
    QColor top;
    QColor bottom;
};

/// How a filled control looks when it is left alone, and while it is pressed.
struct FillColors {
    QColor normal;
    QColor pressed;
};

/// The colours of buttons, checkboxes, sliders and pickers.
struct ControlColors {
    QColor text;
    FillColors bezel;
    EdgeColors bezelEdge;
    /// The accent colour, or a shade of it on which `prominentText` can be read.
    FillColors prominent;
    EdgeColors prominentEdge;
    QColor prominentText;
    QColor track; ///< The part of a slider's that is not filled.
    FillColors knob;
    EdgeColors knobEdge;
    QColor knobShadow;
    QColor focusRing;
    MenuStyle::Card menu;
};

/// The colours for windows with these ones.
ControlColors controlColors(const WindowColors& colors, ColorScheme scheme);

/// The opacity of a control that is disabled.
inline constexpr double disabledOpacity = 0.4;

} // namespace tessel
