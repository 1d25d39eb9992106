#include <memory>
#include <string>

#include "AppKitWindowController.h"
#include "Support/ScriptedContent.h"
#include "Support/WindowTest.h"

namespace tessel::test {
namespace {

class WindowControllerTests : public WindowTest {
protected:
    ~WindowControllerTests() override
    {
        if (controller)
            retire(controller);
    }

    void make(const WindowDescription& description)
    {
        controller =
            std::make_unique<AppKitWindowController>(description, std::make_unique<ScriptedContent>());
        expectNoMore();
        endTurn();
    }

    void makeChromeless(Size contentSize, const std::string& size)
    {
        expectChromelessWindow(size);
        make({.frame = WindowDescription::Frame::none, .title = "Settings", .contentSize = contentSize});
    }

    void makeTitled()
    {
        expectTitledWindow("Setup Required");
        make({.frame = WindowDescription::Frame::titleBar,
              .title = "Setup Required",
              .contentSize = {430, 250}});
    }

    void show()
    {
        expectCall("content.windowWillShow()");
        expectCall("[controller showWindow:nil]");
        controller->showWindow();
        expectNoMore();
    }

    std::unique_ptr<AppKitWindowController> controller;
};

TEST_F(WindowControllerTests, TheSettingsWindowIsMadeAndConfiguredInTheOneOrder)
{
    makeChromeless({420, 520}, "{420, 520}");
}

TEST_F(WindowControllerTests, TheAboutWindowIsMadeInTheSameWayInItsOwnSize)
{
    makeChromeless({420, 340}, "{420, 340}");
}

TEST_F(WindowControllerTests, TheOnboardingWindowIsMadeAndConfiguredInTheOneOrder)
{
    makeTitled();
}

TEST_F(WindowControllerTests, ATitleThatIsNoUTF8IsLeftOut)
{
    expectTitledWindow("");
    make({.frame = WindowDescription::Frame::titleBar, .title = "\xFF", .contentSize = {430, 250}});
}

TEST_F(WindowControllerTests, HasAWindowWhileTheSystemsControllerHasOne)
{
    makeTitled();
    expectCall("[controller window]", true);
    EXPECT_TRUE(controller->hasWindow());
    expectCall("[controller window]", false);
    EXPECT_FALSE(controller->hasWindow());
}

TEST_F(WindowControllerTests, IsVisibleWhenTheSystemSaysSo)
{
    makeTitled();
    expectCall("[window isVisible]", true);
    EXPECT_TRUE(controller->isWindowVisible());
    expectCall("[window isVisible]", false);
    EXPECT_FALSE(controller->isWindowVisible());
}

TEST_F(WindowControllerTests, ShowsTheSameWindowAgainWithoutASender)
{
    makeChromeless({420, 520}, "{420, 520}");
    show();
    show();
    expectClose();
    controller->close();
}

TEST_F(WindowControllerTests, WhatIsStillShownIsClosedWhenTheControllerGoes)
{
    makeTitled();
    show();
    expectClose();
    retire(controller);
}

} // namespace
} // namespace tessel::test
