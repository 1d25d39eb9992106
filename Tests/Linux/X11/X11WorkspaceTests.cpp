#include "Desktop.h"

#include "OtherWindow.h"
#include "TestPanel.h"
#include "WaitUntil.h"

namespace tessel {
namespace {

using X11WorkspaceBareTests = BareDesktop;
using X11WorkspaceManagedTests = ManagedDesktop;

ProcessIdentifier frontmost(const X11Room& room)
{
    const auto application = room.workspace->frontmostApplication();
    return application ? application->processIdentifier() : ProcessIdentifier{0};
}

TEST_F(X11WorkspaceBareTests, theFrontmostApplicationIsTheTopLevelWindowOfTheFocus)
{
    OtherWindow other;
    other.show();
    other.takeFocus();
    other.synchronize();
    EXPECT_EQ(frontmost(room), other.process());
    other.takeFocusInside();
    other.synchronize();
    EXPECT_EQ(frontmost(room), other.process());
}

TEST_F(X11WorkspaceBareTests, whenTheFocusFollowsThePointerItIsTheWindowUnderIt)
{
    OtherWindow other;
    other.show();
    other.synchronize();
    auto* raw = room.connection->raw();
    xcb_set_input_focus(raw, XCB_INPUT_FOCUS_POINTER_ROOT, XCB_INPUT_FOCUS_POINTER_ROOT, XCB_CURRENT_TIME);
    typist.movePointer(100, 100);
    EXPECT_EQ(frontmost(room), other.process());
    typist.movePointer(900, 900);
    EXPECT_EQ(room.workspace->frontmostApplication(), nullptr);
}

TEST_F(X11WorkspaceBareTests, withoutAnyFocusNobodyIsFrontmost)
{
    xcb_set_input_focus(room.connection->raw(), XCB_INPUT_FOCUS_NONE, XCB_INPUT_FOCUS_NONE, XCB_CURRENT_TIME);
    EXPECT_EQ(room.workspace->frontmostApplication(), nullptr);
}

TEST_F(X11WorkspaceBareTests, activatingReturnsTheFocusToTheWindowInsideThatHadIt)
{
    OtherWindow first;
    OtherWindow second;
    first.show();
    first.takeFocusInside();
    first.synchronize();
    const auto before =
        room.connection->wait(xcb_get_input_focus_reply, xcb_get_input_focus(room.connection->raw()))->focus;
    const auto application = room.workspace->frontmostApplication();
    second.show();
    second.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return second.hasFocus(); }));
    room.userTime->note(*room.connection->currentServerTime());
    EXPECT_TRUE(application->activate(ActivationOptions::ignoringOtherApps));
    ASSERT_TRUE(waitUntil([&] { return first.hasFocus(); }));
    const auto after =
        room.connection->wait(xcb_get_input_focus_reply, xcb_get_input_focus(room.connection->raw()))->focus;
    EXPECT_EQ(after, before);
}

TEST_F(X11WorkspaceBareTests, aHeldReturnDoesNotRepeatIntoTheActivatedWindow)
{
    OtherWindow target;
    OtherWindow panel;
    target.show();
    target.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return target.hasFocus(); }));
    const auto application = room.workspace->frontmostApplication();
    panel.show();
    panel.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return panel.hasFocus(); }));
    ASSERT_TRUE(runProgram({"xset", "r", "rate", "300", "50"}));
    int repetitions = 0;
    const Token token = room.connection->observeEvents(
        [&](const xcb_generic_event_t& event) { repetitions += eventKind(event) == XCB_KEY_PRESS; });
    room.userTime->note(*room.connection->currentServerTime());
    typist.press(Key::returnKey);
    EXPECT_TRUE(application->activate(ActivationOptions::ignoringOtherApps));
    ASSERT_TRUE(waitUntil([&] { return target.hasFocus(); }));
    EXPECT_TRUE(waitUntil([&] { return repetitions >= 1; })) << "The repetitions have to come to us.";
    typist.release(Key::returnKey);
    target.synchronize();
    EXPECT_EQ(target.presses(), 0);
    EXPECT_TRUE(waitUntil([&] {
        typist.tap(Key::a);
        target.synchronize();
        return target.presses(Key::a, Modifier::none) > 0;
    })) << "The keyboard is free again.";
}

TEST_F(X11WorkspaceManagedTests, theFrontmostApplicationIsTheActiveWindow)
{
    OtherWindow first;
    first.show();
    ASSERT_TRUE(waitUntil([&] { return first.hasFocus(); }));
    ASSERT_TRUE(waitUntil([&] { return frontmost(room) == first.process(); }));
    OtherWindow second;
    second.show();
    ASSERT_TRUE(waitUntil([&] { return second.hasFocus(); }));
    ASSERT_TRUE(waitUntil([&] { return frontmost(room) == second.process(); }));
}

TEST_F(X11WorkspaceManagedTests, activatingBringsTheRecordedWindowBackNotJustAnyOfItsProcess)
{
    OtherWindow first;
    OtherWindow second;
    first.show();
    ASSERT_TRUE(waitUntil([&] { return first.hasFocus() && frontmost(room) == first.process(); }));
    const auto application = room.workspace->frontmostApplication();
    second.show();
    ASSERT_TRUE(waitUntil([&] { return second.hasFocus(); }));
    room.userTime->note(*room.connection->currentServerTime());
    EXPECT_TRUE(application->activate(ActivationOptions::ignoringOtherApps));
    EXPECT_TRUE(waitUntil([&] { return first.hasFocus() && !second.hasFocus(); }));
}

TEST_F(X11WorkspaceManagedTests, ourOwnWindowIsFrontmostOnlyWhileItIsShown)
{
    TestPanel panel;
    panel.prepare(room);
    panel.open(room);
    ASSERT_TRUE(waitUntil([&] { return frontmost(room) == ProcessIdentifier{panel.id()}; }));
    const auto id = panel.id();
    panel.hide();
    EXPECT_NE(frontmost(room), ProcessIdentifier{id}) << "Also while openbox goes on announcing it.";
}

TEST_F(X11WorkspaceManagedTests, aClosedWindowCannotBeActivated)
{
    OtherWindow first;
    first.show();
    ASSERT_TRUE(waitUntil([&] { return first.hasFocus() && frontmost(room) == first.process(); }));
    const auto application = room.workspace->frontmostApplication();
    first.closeWindow();
    EXPECT_TRUE(waitUntil([&] { return !application->activate(ActivationOptions::ignoringOtherApps); }));
    EXPECT_EQ(application->processIdentifier(), ProcessIdentifier{noWindow})
        << "Another may have its number.";
}

TEST_F(X11WorkspaceBareTests, addressesAreOpenedByTheLauncher)
{
    std::vector<OpenCommand> launched;
    X11Workspace workspace(room.connection, room.windowManager, room.toolkitWindows, room.userTime,
                           [&](const OpenCommand& command) { launched.push_back(command); });
    workspace.openURL("https://example.org");
    workspace.openURL("unknown:thing");
    EXPECT_EQ(launched, (std::vector<OpenCommand>{{"xdg-open", {"https://example.org"}}}));
}

} // namespace
} // namespace tessel
