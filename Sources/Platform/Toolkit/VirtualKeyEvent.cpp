#include "VirtualKeyEvent.h"

#include <QtGui/QKeyEvent>

namespace tessel {

namespace {

/// True for a character of Cyrillic, Greek and so on; not for the keys that yield no character at all.
bool isOfAnotherScript(int key)
{
    constexpr int firstKeyWithoutCharacter = Qt::Key_Escape;
    if (key <= 0 || key >= firstKeyWithoutCharacter)
        return false;
    const QChar::Script script = QChar::script(static_cast<char32_t>(key));
    return script != QChar::Script_Latin && script != QChar::Script_Common &&
           script != QChar::Script_Inherited;
}

/// By the number that X11 and Wayland give a key of a PC keyboard.
std::uint16_t virtualKeyCodeInPosition(quint32 scanCode)
{
    constexpr quint32 fourthKeyOfTheBottomRow = 55;
    constexpr quint32 tenthKeyOfTheTopRow = 33;
    switch (scanCode) {
    case fourthKeyOfTheBottomRow:
        return VirtualKey::v;
    case tenthKeyOfTheTopRow:
        return VirtualKey::p;
    default:
        return VirtualKey::unknown;
    }
}

std::uint16_t virtualKeyCode(const QKeyEvent& event)
{
    if (isOfAnotherScript(event.key()))
        return virtualKeyCodeInPosition(event.nativeScanCode());
    switch (event.key()) {
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
    return {virtualKeyCode(event), modifierFlags(event.modifiers())};
}

} // namespace tessel
