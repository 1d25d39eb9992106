#include <string>
#include <vector>

#include "AppKitNativeWindows.h"
#include "Support/MacOSTest.h"
#include "Support/System.h"

namespace tessel::test {
namespace {

class NativeWindowTests : public MacOSTest {
protected:
    void expectWindow(Answer window = Object{"window"}) { expectCall("[view window]", std::move(window)); }

    ToolkitView view{"view"};
    AppKitNativeWindows windows;
};

TEST_F(NativeWindowTests, APanelFloatsOnEverySpaceBesideFullScreenWindows)
{
    expectWindow();
    expectCall("[window setLevel:3]");
    expectCall("[window setCollectionBehavior:0x101]");
    expectCall("[window setHasShadow:NO]");
    windows.preparePanel(view.handle(), {.floatsAboveOthers = true,
                                         .joinsAllSpaces = true,
                                         .overFullScreen = true,
                                         .hasShadow = false,
                                         .becomesMain = false});
}

TEST_F(NativeWindowTests, APanelWithoutTraitsIsAWindowLikeOthers)
{
    expectWindow();
    expectCall("[window setLevel:0]");
    expectCall("[window setCollectionBehavior:0x0]");
    expectCall("[window setHasShadow:YES]");
    windows.preparePanel(view.handle(), {.hasShadow = true});
}

TEST_F(NativeWindowTests, MakesTheViewsWindowKeyInFrontWithoutASender)
{
    expectWindow();
    expectCall("[window makeKeyAndOrderFront:nil]");
    windows.makeKeyAndOrderFront(view.handle());
}

TEST_F(NativeWindowTests, OrdersTheViewsWindowFrontWithoutASender)
{
    expectWindow();
    expectCall("[window orderFront:nil]");
    windows.orderFront(view.handle());
}

TEST_F(NativeWindowTests, AViewThatIsInNoWindowAsksForNothing)
{
    expectWindow(Nil{});
    windows.makeKeyAndOrderFront(view.handle());
    expectWindow(Nil{});
    const Token token = windows.observeOcclusion(view.handle(), [](bool) { FAIL(); });
    EXPECT_FALSE(token);
}

TEST_F(NativeWindowTests, AWindowIsCoveredWhileItIsNotAmongTheVisible)
{
    expectWindow();
    expectCall("[NSNotificationCenter defaultCenter]", Object{"center"});
    expectCall("[center addObserverForName:@\"NSWindowDidChangeOcclusionStateNotification\" object:window "
               "queue:nil usingBlock:^]",
               Object{"occlusion"});
    std::vector<bool> told;
    Token token = windows.observeOcclusion(
        view.handle(), [&told, held = std::string("what the observer holds, and is not short")](
                           bool isCovered) { told.push_back(isCovered && !held.empty()); });
    expectCall("[window occlusionState]", 0);
    notify("occlusion");
    expectCall("[window occlusionState]", 2); // Visible.
    notify("occlusion");
    EXPECT_EQ(told, (std::vector<bool>{true, false}));

    expectCall("[center removeObserver:occlusion]");
    token.reset();
}

TEST_F(NativeWindowTests, WindowsAlwaysBlend)
{
    EXPECT_TRUE(windows.blendsTranslucentWindows());
    EXPECT_FALSE(windows.observeBlending([] { FAIL(); }));
}

TEST_F(NativeWindowTests, NeitherBlursNorCutsNorTakesPictures)
{
    EXPECT_FALSE(windows.blursBehindWindows());
    windows.blurBehind(view.handle(), {{0, 0, 10, 10}});
    windows.cutToShape(view.handle(), {{0, 0, 10, 10}});
    const std::vector<ScreenPictureRequest> requests(2);
    const auto pictures = windows.picturesOfScreen(view.handle(), requests);
    ASSERT_EQ(pictures.size(), 2U);
    EXPECT_TRUE(pictures[0].pixels.empty());
    EXPECT_TRUE(pictures[1].pixels.empty());
}

} // namespace
} // namespace tessel::test
