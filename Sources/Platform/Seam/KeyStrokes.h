#pragma once

#include <cstdint>
#include <optional>

#include "KeyEvent.h"
#include "Workspace.h"

namespace tessel {

/// Synthetic keyboard events (`CGEvent...`; XTEST).
class KeyStrokes {
public:
    virtual ~KeyStrokes() = default;

    /// Posts one key stroke, down then up, made from an event source with the HID system state. Both events
    /// carry exactly `flags`. With a `process` both are posted to that process, and to no other; without one
    /// they are posted at the HID event tap and reach whoever has the focus. Nothing is posted if the source
    /// or either event cannot be made.
    virtual void postKeyStroke(std::uint16_t keyCode, ModifierFlags flags,
                               std::optional<ProcessIdentifier> process) = 0;
};

} // namespace tessel
