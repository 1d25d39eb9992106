// Pasting with keys under the user's fingers.

#include "LoneKeyWatch.h"
#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

/// Inside the first row, in pixels from the panel's top.
constexpr int firstRow = 120;

class HeldKeyTest : public ProgramTest {
protected:
    void SetUp() override
    {
        ProgramTest::SetUp();
        copyTexts({"A", "B"});
    }

    /// The keys move; a launcher that opens when Super is pressed and released alone sees that.
    void expectTheWatchWorks(LoneKeyWatch& watch)
    {
        const int before = watch.count();
        desktop_.keyboard().tap(XKB_KEY_Super_L);
        desktop_.connection().synchronize();
        EXPECT_EQ(watch.count(), before + 1);
    }

    LoneKeyWatch watchLoneKey(KeySymbol symbol)
    {
        return {desktop_.displayName(), desktop_.keyboard().keyCode(symbol)};
    }
};

TEST_F(HeldKeyTest, SuperHeldFromTheHotKeyToThePasteIsNoTapOfSuper)
{
    TextClient target(desktop_, TextClientKind::gtk);
    auto watch = watchLoneKey(XKB_KEY_Super_L);
    pasteTheSecondEntryUnderHeldSuper(target, "A");
    EXPECT_EQ(watch.count(), 0);
    expectPastedOnce(target, "A");
    expectTheWatchWorks(watch);
}

class HeldModifierTest : public HeldKeyTest, public testing::WithParamInterface<KeySymbol> {};

TEST_P(HeldModifierTest, HeldDuringAPasteByThePointerItIsNoTap)
{
    TextClient target(desktop_, TextClientKind::qt);
    auto watch = watchLoneKey(GetParam());
    const auto panel = program_->openPanel();
    desktop_.pointer().moveTo({panel.frame.x + panel.frame.width / 2, panel.frame.y + firstRow});
    desktop_.keyboard().press(GetParam());
    desktop_.pointer().doubleClick();
    target.waitForText("B");
    desktop_.keyboard().release(GetParam());
    waitUntilNoKeyIsDown();
    EXPECT_EQ(watch.count(), 0);
    expectPastedOnce(target, "B");
}

INSTANTIATE_TEST_SUITE_P(Keys, HeldModifierTest,
                         testing::Values(KeySymbol{XKB_KEY_Super_L}, KeySymbol{XKB_KEY_Alt_L},
                                         KeySymbol{XKB_KEY_Control_L}),
                         [](const auto& parameter) {
                             return parameter.param == XKB_KEY_Super_L ? "Super"
                                    : parameter.param == XKB_KEY_Alt_L ? "Alt"
                                                                       : "Control";
                         });

} // namespace

} // namespace tessel::desktop
