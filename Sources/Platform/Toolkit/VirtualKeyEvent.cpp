#include "VirtualKeyEvent.h"

#include <QtGui/QKeyEvent>

namespace tessel {

namespace {

std::uint16_t virtualKeyCode(int key)
{
    switch (key) {
    case Qt::Key_Up:
        return VirtualKey::upArrow;
    case Qt::Key_Down:
        return VirtualKey::downArrow;
    case Qt::Key_Return:
        return VirtualKey::returnKey;
    case Qt::Key_Enter:
        return VirtualKey::keypadEnter;
    case Qt::Key_Escape:
        return VirtualKey::escape;
    case Qt::Key_Backspace:
        return VirtualKey::deleteKey;
    case Qt::Key_Delete:
        return VirtualKey::forwardDelete;
    case Qt::Key_P:
        return VirtualKey::p;
    case Qt::Key_V:
        return VirtualKey::v;
    default:
        return VirtualKey::unknown;
    }
}

ModifierFlags modifierFlags(Qt::KeyboardModifiers modifiers)
{
    ModifierFlags flags = ModifierFlags::none;
    if (modifiers & (Qt::ControlModifier | Qt::MetaModifier))
        flags = flags | ModifierFlags::command;
    if (modifiers & Qt::ShiftModifier)
        flags = flags | ModifierFlags::shift;
    if (modifiers & Qt::AltModifier)
        flags = flags | ModifierFlags::option;
    return flags;
}

} // namespace

KeyEvent virtualKeyEvent(const QKeyEvent& event)
{
    return {virtualKeyCode(event.key()), modifierFlags(event.modifiers())};
}

} // namespace tessel
