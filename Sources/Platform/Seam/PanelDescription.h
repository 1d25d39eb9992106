#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include "Geometry.h"

namespace tessel {

/// Steps of a panel's configuration, named after the window operation that each calls.
namespace PanelStep {
struct FloatingPanel {
    bool on;
};
struct Level {
    int value; ///< 3 is the floating window level.
};
struct CollectionBehavior {
    std::uint64_t mask; ///< `canJoinAllSpaces` 0x1, `fullScreenAuxiliary` 0x100.
};
struct HasShadow {
    bool on;
};
struct MovableByWindowBackground {
    bool on;
};
struct Opaque {
    bool on;
};
/// The background colour is the clear colour.
struct ClearBackground {};
/// The content view controller is set to the one that hosts the panel's view.
struct ContentViewController {};
} // namespace PanelStep

using PanelConfigurationStep =
    std::variant<PanelStep::FloatingPanel, PanelStep::Level, PanelStep::CollectionBehavior,
                 PanelStep::HasShadow, PanelStep::MovableByWindowBackground, PanelStep::Opaque,
                 PanelStep::ClearBackground, PanelStep::ContentViewController>;

/// How a panel's window is made: its initialiser's arguments, and then its configuration, to be
/// applied in order. Beyond it the window keeps its class's habits; in particular it hides while the
/// application is inactive.
struct PanelDescription {
    Rect contentRect;
    std::uint64_t styleMask;    ///< 0: borderless.
    std::uint64_t backingStore; ///< 2: buffered.
    bool defersCreation;
    std::vector<PanelConfigurationStep> configuration;
};

} // namespace tessel
