// A window manager that opens its launcher when Super is pressed and released alone.

#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

class KwinLauncherTest : public ProgramTest {
protected:
    KwinLauncherTest()
        : ProgramTest({.windowManager = WindowManagerChoice::kwin})
    {}

    /// Counted from zero; kwin is set up to show the next one instead of a launcher.
    std::vector<std::uint32_t> currentDesktop()
    {
        return desktop_.connection().propertyItems(desktop_.connection().root(), "_NET_CURRENT_DESKTOP");
    }
};

TEST_F(KwinLauncherTest, SuperHeldFromTheHotKeyToThePasteOpensNoLauncher)
{
    copyTexts({"A", "B"});
    TextClient target(desktop_, TextClientKind::gtk);
    pasteTheSecondEntryUnderHeldSuper(target, "A");
    expectPastedOnce(target, "A");
    EXPECT_EQ(currentDesktop(), std::vector<std::uint32_t>{0});

    desktop_.keyboard().tap(XKB_KEY_Super_L);
    desktop_.connection().waitUntil("kwin to see that Super was pressed alone",
                                    [this] { return currentDesktop() == std::vector<std::uint32_t>{1}; });
}

} // namespace

} // namespace tessel::desktop
