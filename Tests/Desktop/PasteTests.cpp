// Where a paste goes, and where it does not.

#include <csignal>

#include "ManyPastes.h"
#include "UntrustedTest.h"

namespace tessel::desktop {

namespace {

class OneLineFieldTest : public ProgramTest, public testing::WithParamInterface<TextClientKind> {};

TEST_P(OneLineFieldTest, AnEntryArrivesAsAPasteByHandWouldBringIt)
{
    const std::string text =
        "Zażółć gęślą jaźń, éèêü\tcolumn\t\tcolumn 漢字 🦊 👩‍👩‍👧‍👦 "
        "🇵🇱 "
        "e\u0301";
    copyTexts({text});
    TextClient field(desktop_, GetParam());
    expectPastedAsByHand(field, "Zażółć gęślą jaźń, éèêü");
}

INSTANTIATE_TEST_SUITE_P(Fields, OneLineFieldTest,
                         testing::Values(TextClientKind::gtkEntry, TextClientKind::qtLineEdit),
                         [](const auto& parameter) {
                             return parameter.param == TextClientKind::gtkEntry ? "GtkEntry" : "QtLineEdit";
                         });

class TargetTest : public ProgramTest {};

TEST_F(TargetTest, OfTwoWindowsOfOneProcessTheOneThatTheUserWasInIsPastedInto)
{
    copyTexts({"A", "B"});
    TextClient first(desktop_, TextClientKind::qt);
    TextClient second = first.openSecondWindow();
    choose(0);
    expectPastedOnce(second, "B");
    first.activate();
    choose(1);
    expectPastedOnce(first, "A");
    EXPECT_EQ(second.text(), "B!");
}

TEST_F(TargetTest, NobodyIsPastedIntoWhenTheTargetHasBeenClosedMeanwhile)
{
    copyTexts({"A"});
    TextClient bystander(desktop_, TextClientKind::gtk);
    {
        TextClient target(desktop_, TextClientKind::qt);
        program_->openPanel();
        desktop_.keyboard().press(XKB_KEY_Return);
        program_->panel().waitUntilClosed();
        // The paste waits for Return to come up.
        target.process().end();
    }
    desktop_.connection().waitUntil("the other window to have the focus",
                                    [&] { return bystander.hasFocus(); });
    desktop_.keyboard().release(XKB_KEY_Return);
    letTheProgramTick();
    desktop_.keyboard().type("!");
    bystander.waitForText("!");
    EXPECT_EQ(bystander.pasteCount(), 0);
}

TEST_F(TargetTest, NobodyIsPastedIntoWhenTheTargetWasClosedWhileThePanelWasOpen)
{
    copyTexts({"A"});
    TextClient bystander(desktop_, TextClientKind::gtk);
    {
        TextClient target(desktop_, TextClientKind::qt);
        program_->openPanel();
        target.process().end();
    }
    desktop_.keyboard().tap(XKB_KEY_Return);
    program_->panel().waitUntilClosed();
    letTheProgramTick();
    bystander.activate();
    desktop_.keyboard().type("!");
    bystander.waitForText("!");
    EXPECT_EQ(bystander.pasteCount(), 0);
}

class WithoutWindowManagerTest : public ProgramTest {
protected:
    WithoutWindowManagerTest()
        : ProgramTest({.windowManager = WindowManagerChoice::none})
    {}
};

TEST_F(WithoutWindowManagerTest, WithNoWindowInFrontWhoeverGetsTheKeysAfterwardsIsPastedInto)
{
    copyTexts({"A"});
    TextClient client(desktop_, TextClientKind::gtk);
    const auto frame = desktop_.windows().facts(client.window()).value().frame;
    // Keys go to the window under the pointer, where there is none.
    desktop_.pointer().moveTo({frame.x + frame.width + 100, frame.y + 20});
    xcb_set_input_focus(desktop_.connection().get(), XCB_INPUT_FOCUS_POINTER_ROOT,
                        XCB_INPUT_FOCUS_POINTER_ROOT, XCB_CURRENT_TIME);
    desktop_.connection().synchronize();
    program_->openPanel();
    desktop_.pointer().moveTo({frame.x + frame.width - 20, frame.y + frame.height - 20});
    desktop_.keyboard().tap(XKB_KEY_Return);
    client.waitForText("A");
    letTheProgramTick();
    desktop_.keyboard().type("!");
    client.waitForText("A!");
    EXPECT_EQ(client.pasteCount(), 1);
}

TEST_F(ManyPastesTest, EachArrivesOnceWhereTheUserWas)
{
    TextClient gtk(desktop_, TextClientKind::gtk);
    TextClient qt(desktop_, TextClientKind::qt);
    TextClient sibling = qt.openSecondWindow();
    TextClient entry(desktop_, TextClientKind::gtkEntry);
    pasteAtRandom({&gtk, &qt, &sibling, &entry}, 25, 20261121);
}

class WithoutSyntheticKeysTest : public UntrustedTest {
protected:
    WithoutSyntheticKeysTest()
        : UntrustedTest(ServerChoice::withoutSyntheticKeys)
    {}
};

TEST_F(WithoutSyntheticKeysTest, AnEntryIsOnlyCopiedAndThePromptSaysSo)
{
    expectThatChoosingOnlyCopies();
}

TEST_F(WithoutSyntheticKeysTest, QuitEndsItWithThePromptAndThePanelOpen)
{
    Program program(desktop_);
    showPromptAndPanel(program);
    EXPECT_TRUE(program.quit().succeeded());
    EXPECT_EQ(Program::sanitizerComplaint(program.process().errorOutput()), "");
}

TEST_F(WithoutSyntheticKeysTest, ASignalEndsItWithThePromptAndThePanelOpen)
{
    Program program(desktop_);
    showPromptAndPanel(program);
    program.process().signal(SIGTERM);
    EXPECT_TRUE(program.process().waitForExit().succeeded());
    EXPECT_EQ(Program::sanitizerComplaint(program.process().errorOutput()), "");
}

} // namespace

} // namespace tessel::desktop
