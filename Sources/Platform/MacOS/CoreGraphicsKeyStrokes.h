#pragma once

#include "KeyStrokes.h"

namespace tessel {

/// Keyboard events of Core Graphics. The process needs to be trusted for Accessibility; else they are lost.
class CoreGraphicsKeyStrokes final : public KeyStrokes {
public:
    void postKeyStroke(std::uint16_t keyCode, ModifierFlags flags,
                       std::optional<ProcessIdentifier> process) override;
};

} // namespace tessel
