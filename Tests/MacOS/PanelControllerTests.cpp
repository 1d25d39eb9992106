#include <memory>

#include "AppKitPanelController.h"
#include "Panel/HistoryPanelDescription.h"
#include "Support/ScriptedContent.h"
#include "Support/WindowTest.h"

namespace tessel::test {
namespace {

class PanelControllerTests : public WindowTest {
protected:
    ~PanelControllerTests() override
    {
        if (controller)
            retire(controller);
    }

    void make()
    {
        expectContentViewController("{460, 420}");
        expectPanel();
        controller =
            std::make_unique<AppKitPanelController>(panelDescription(), std::make_unique<ScriptedContent>());
        expectNoMore();
        endTurn();
    }

    void show()
    {
        expectCall("content.windowWillShow()");
        expectCall("[controller showWindow:nil]");
        controller->showWindow();
        expectNoMore();
    }

    std::unique_ptr<AppKitPanelController> controller;
};

TEST_F(PanelControllerTests, MakesAndConfiguresThePanelInTheOneOrder)
{
    make();
}

TEST_F(PanelControllerTests, TheMaterialIsBehindTheContent)
{
    const ToolkitView material("material");
    expectContainer("{460, 420}");
    expectFilledBy("material", "{460, 420}");
    expectFilledBy("content", "{460, 420}");
    expectViewController();
    expectPanel();
    controller = std::make_unique<AppKitPanelController>(
        panelDescription(), std::make_unique<ScriptedContent>(material.handle()));
    expectNoMore();
    endTurn();
    retire(controller);
}

TEST_F(PanelControllerTests, CanBecomeKeyAndNeverMain)
{
    make();
    EXPECT_TRUE(canBecomeKey("panel"));
    EXPECT_FALSE(canBecomeMain("panel"));
}

TEST_F(PanelControllerTests, HasAWindowWhileTheSystemsControllerHasOne)
{
    make();
    expectCall("[controller window]", true);
    EXPECT_TRUE(controller->hasWindow());
    expectCall("[controller window]", false);
    EXPECT_FALSE(controller->hasWindow());
}

TEST_F(PanelControllerTests, IsVisibleWhenTheSystemSaysSo)
{
    make();
    expectCall("[panel isVisible]", true);
    EXPECT_TRUE(controller->isWindowVisible());
    expectCall("[panel isVisible]", false); // As while the application is inactive.
    EXPECT_FALSE(controller->isWindowVisible());
}

TEST_F(PanelControllerTests, SetsTheContentSize)
{
    make();
    expectCall("[panel setContentSize:{460, 262}]");
    controller->setContentSize({460, 262});
}

TEST_F(PanelControllerTests, SetsTheFrameOriginByTheSizeOfItsFrame)
{
    make();
    expectCall("[panel frame]", Numbers{{12, 34, 460, 262}});
    EXPECT_EQ(controller->frame(), (Rect{{12, 34}, {460, 262}}));
    expectCall("[panel setFrameOrigin:{412.5, 368}]");
    controller->setFrameOrigin({412.5, 368});
}

TEST_F(PanelControllerTests, ShowsTheWindowWithoutASenderOnceTheContentIsReady)
{
    make();
    show();
    expectClose();
    controller->close();
}

TEST_F(PanelControllerTests, BecomesKeyInFrontWithoutASenderAndTheContentTakesTheKeys)
{
    make();
    expectCall("[panel makeKeyAndOrderFront:nil]");
    expectCall("[panel makeFirstResponder:content]", true);
    controller->makeKeyAndOrderFront();
}

TEST_F(PanelControllerTests, ShownAgainItIsNotMadeAgain)
{
    make();
    show();
    show();
    expectClose();
    controller->close();
}

TEST_F(PanelControllerTests, WhatIsStillShownIsClosedWhenTheControllerGoes)
{
    make();
    show();
    expectClose();
    retire(controller);
}

TEST_F(PanelControllerTests, WindowAndContentOutliveTheTurnInWhichTheyAreClosed)
{
    make();
    show();
    expectClose();
    controller->close();
    expectCall("dispatch_async(main queue, ^)");
    controller.reset();
    endTurn();
    // The content may still be in a handler of its own.
    EXPECT_TRUE(canBecomeKey("panel"));
    expectCall("content.end()");
    runNextBlock();
}

} // namespace
} // namespace tessel::test
