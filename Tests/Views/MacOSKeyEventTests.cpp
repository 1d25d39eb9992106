// Key events as the toolkit makes them on macOS.

#include <gtest/gtest.h>

#include <QtGui/QKeyEvent>

#include "VirtualKeyEvent.h"

namespace tessel::test {

namespace {

KeyEvent pressed(quint32 virtualKey, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return virtualKeyEvent(
        QKeyEvent(QEvent::KeyPress, Qt::Key_unknown, modifiers, 0, virtualKey, 0, QString()));
}

} // namespace

TEST(MacOSKeyEvents, HaveTheKeyCodeOfTheSystem)
{
    EXPECT_EQ(pressed(35).keyCode, VirtualKey::p);
    EXPECT_EQ(pressed(51).keyCode, VirtualKey::deleteKey);
    EXPECT_EQ(pressed(53).keyCode, VirtualKey::escape);
    EXPECT_EQ(pressed(76).keyCode, VirtualKey::keypadEnter);
    EXPECT_EQ(pressed(126).keyCode, VirtualKey::upArrow);
}

TEST(MacOSKeyEvents, CommandIsWhatTheToolkitCallsControlAndControlIsItsMeta)
{
    EXPECT_EQ(pressed(35, Qt::ControlModifier).modifierFlags, ModifierFlags::command);
    EXPECT_EQ(pressed(35, Qt::MetaModifier).modifierFlags, ModifierFlags::control);
    EXPECT_EQ(pressed(35, Qt::ShiftModifier).modifierFlags, ModifierFlags::shift);
    EXPECT_EQ(pressed(35, Qt::AltModifier).modifierFlags, ModifierFlags::option);
    EXPECT_EQ(pressed(35).modifierFlags, ModifierFlags::none);
}

TEST(MacOSKeyEvents, HaveAllOfTheirModifiers)
{
    EXPECT_EQ(pressed(51, Qt::ControlModifier | Qt::ShiftModifier).modifierFlags,
              ModifierFlags::command | ModifierFlags::shift);
}

} // namespace tessel::test
