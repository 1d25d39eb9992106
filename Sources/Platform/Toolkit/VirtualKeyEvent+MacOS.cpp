#include "VirtualKeyEvent.h"

#include <QtGui/QKeyEvent>

namespace tessel {

KeyEvent virtualKeyEvent(const QKeyEvent& event)
{
    // The toolkit's names for them are those of other keyboards: Control is Command, and Meta is Control.
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    ModifierFlags flags = ModifierFlags::none;
    if (modifiers.testFlag(Qt::ControlModifier))
        flags = flags | ModifierFlags::command;
    if (modifiers.testFlag(Qt::MetaModifier))
        flags = flags | ModifierFlags::control;
    if (modifiers.testFlag(Qt::ShiftModifier))
        flags = flags | ModifierFlags::shift;
    if (modifiers.testFlag(Qt::AltModifier))
        flags = flags | ModifierFlags::option;
    return {static_cast<std::uint16_t>(event.nativeVirtualKey()), flags};
}

} // namespace tessel
