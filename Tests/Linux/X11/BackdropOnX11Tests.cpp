// What the server and a compositing manager do for what shines through the panel.

#include <gmock/gmock.h>

#include <array>

#include <QtGui/QWindow>
#include <xcb/shape.h>

#include "Desktop.h"
#include "TestCompositor.h"
#include "TestPanel.h"
#include "WaitUntil.h"
#include "X11/PropertyValue.h"

namespace tessel {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t blue = 0xFF0000FF;

class BackdropOnX11Tests : public BareDesktop {
protected:
    void TearDown() override
    {
        for (const xcb_window_t window : coloured_)
            xcb_destroy_window(room.connection->raw(), window);
        TestCompositor().withdrawBlur();
        ASSERT_TRUE(waitUntil([&] { return !room.nativeWindows->blendsTranslucentWindows(); }));
        BareDesktop::TearDown();
    }

    /// A window of one colour, on screen at once.
    void showColour(std::uint32_t colour, std::int16_t x, std::int16_t y, std::uint16_t width,
                    std::uint16_t height)
    {
        auto* raw = room.connection->raw();
        const xcb_window_t window = xcb_generate_id(raw);
        const std::array<std::uint32_t, 2> values = {colour & 0xFFFFFFU, 1};
        xcb_create_window(raw, XCB_COPY_FROM_PARENT, window, room.connection->root(), x, y, width, height, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values.data());
        xcb_map_window(raw, window);
        coloured_.push_back(window);
    }

    ScreenPicture picture(const ScreenPictureRequest& request)
    {
        return room.nativeWindows->picturesOfScreen(panel_.handle(), std::array{request}).front();
    }

    std::vector<std::uint32_t> blurRegion()
    {
        auto* raw = room.toolkitWindows->raw();
        const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            raw,
            xcb_get_property(raw, 0, panel_.id(), room.connection->atoms().blurBehindRegion,
                             XCB_ATOM_CARDINAL, 0, 64),
            nullptr));
        const auto units = unitsOf(reply.get());
        return {units.begin(), units.end()};
    }

    std::vector<PixelRectangle> boundingShape()
    {
        auto* raw = room.toolkitWindows->raw();
        const X11Reply<xcb_shape_get_rectangles_reply_t> reply(xcb_shape_get_rectangles_reply(
            raw, xcb_shape_get_rectangles(raw, panel_.id(), XCB_SHAPE_SK_BOUNDING), nullptr));
        std::vector<PixelRectangle> rectangles;
        const std::span found(
            xcb_shape_get_rectangles_rectangles(reply.get()),
            static_cast<std::size_t>(xcb_shape_get_rectangles_rectangles_length(reply.get())));
        for (const xcb_rectangle_t& part : found)
            rectangles.push_back({part.x, part.y, part.width, part.height});
        return rectangles;
    }

    /// Lies at 200, 300 with an extent of 460 x 220; not on screen.
    TestPanel panel_;
    std::vector<xcb_window_t> coloured_;
};

TEST_F(BackdropOnX11Tests, aPictureShowsWhatIsOnTheScreenWhereTheWindowWillBe)
{
    showColour(red, 200, 300, 20, 10);
    showColour(blue, 220, 300, 20, 10);
    const auto taken = picture({{18, 9, 4, 1}});
    EXPECT_EQ(taken.rectangle, (PixelRectangle{18, 9, 4, 1}));
    EXPECT_THAT(taken.pixels, ElementsAre(red, red, blue, blue));
}

TEST_F(BackdropOnX11Tests, aPictureCanBeTakenBeforeTheLoopHasRun)
{
    showColour(red, 200, 300, 20, 10);
    room.connection->flush();
    const X11Room next = makeX11Room({});
    const auto taken =
        next.nativeWindows->picturesOfScreen(panel_.handle(), std::array{ScreenPictureRequest{{0, 0, 2, 1}}});
    EXPECT_THAT(taken.front().pixels, ElementsAre(red, red));
}

TEST_F(BackdropOnX11Tests, theServerReducesAPictureToTheAverages)
{
    showColour(red, 150, 250, 560, 320);
    showColour(blue, 212, 300, 100, 100); // From the middle of the second cell.
    const auto taken = picture({{0, 0, 37, 9}, 8});
    EXPECT_EQ(taken.reduction, 8);
    ASSERT_EQ(taken.width, 5);
    ASSERT_EQ(taken.height, 2);
    EXPECT_EQ(taken.pixels[0], red);
    const std::uint32_t middle = taken.pixels[1];
    EXPECT_NEAR((middle >> 16) & 0xFF, 128, 2);
    EXPECT_NEAR(middle & 0xFF, 128, 2);
    EXPECT_EQ(middle >> 24, 0xFFU);
    EXPECT_EQ(taken.pixels[2], blue);
    EXPECT_EQ(taken.pixels[4], blue); // Beyond what was asked for it is like the edge.
    EXPECT_EQ(taken.pixels[9], blue);
}

TEST_F(BackdropOnX11Tests, severalPicturesAreTakenAtOnce)
{
    showColour(red, 200, 300, 460, 220);
    const std::vector<ScreenPictureRequest> requests = {
        {{0, 0, 460, 220}, 16}, {{0, 0, 3, 3}}, {{5, 5, 2, 1}, 2}};
    const auto taken = room.nativeWindows->picturesOfScreen(panel_.handle(), requests);
    ASSERT_EQ(taken.size(), 3U);
    EXPECT_EQ(taken[0].pixels.size(), 29U * 14U);
    EXPECT_EQ(taken[1].pixels.size(), 9U);
    EXPECT_EQ(taken[2].pixels.size(), 1U);
    for (const auto& each : taken)
        EXPECT_THAT(each.pixels, Each(red));
}

TEST_F(BackdropOnX11Tests, aPictureEndsWhereTheScreenEnds)
{
    panel_.winId();
    panel_.move(-100, 1000);
    panel_.windowHandle()->setGeometry(panel_.geometry());
    const auto taken = picture({{0, 0, 460, 220}});
    EXPECT_EQ(taken.rectangle, (PixelRectangle{100, 0, 360, 24}));
    EXPECT_EQ(taken.pixels.size(), 360U * 24U);
    EXPECT_TRUE(picture({{-50, 0, 100, 220}}).pixels.empty());
}

TEST_F(BackdropOnX11Tests, thereIsNoPictureForAWindowOfSomebodyElse)
{
    const auto taken = room.nativeWindows->picturesOfScreen(NativeWindowHandle{room.connection->root()},
                                                            std::array{ScreenPictureRequest{{0, 0, 4, 4}}});
    ASSERT_EQ(taken.size(), 1U);
    EXPECT_TRUE(taken.front().pixels.empty());
}

TEST_F(BackdropOnX11Tests, blurIsOfferedWhileACompositingManagerAnnouncesIt)
{
    EXPECT_FALSE(room.nativeWindows->blursBehindWindows());
    {
        TestCompositor compositor;
        ASSERT_TRUE(waitUntil([&] { return room.nativeWindows->blendsTranslucentWindows(); }));
        EXPECT_FALSE(room.nativeWindows->blursBehindWindows());
        compositor.announceBlur();
        EXPECT_TRUE(waitUntil([&] { return room.nativeWindows->blursBehindWindows(); }));
        compositor.withdrawBlur();
        EXPECT_TRUE(waitUntil([&] { return !room.nativeWindows->blursBehindWindows(); }));
        compositor.announceBlur();
        EXPECT_TRUE(waitUntil([&] { return room.nativeWindows->blursBehindWindows(); }));
    }
    // It has crashed.
    EXPECT_TRUE(waitUntil([&] { return !room.nativeWindows->blursBehindWindows(); }));
}

TEST_F(BackdropOnX11Tests, blurThatIsAnnouncedAlreadyIsNoticedAtStartUp)
{
    TestCompositor compositor;
    compositor.announceBlur();
    ASSERT_TRUE(waitUntil([&] { return room.nativeWindows->blursBehindWindows(); }));
    const X11Room next = makeX11Room({});
    EXPECT_TRUE(next.nativeWindows->blursBehindWindows()) << "before the loop has run";
}

TEST_F(BackdropOnX11Tests, theRegionToBlurIsAPropertyOfTheWindow)
{
    const PixelRegion region = {{3, 0, 454, 1}, {0, 1, 460, 219}};
    room.nativeWindows->blurBehind(panel_.handle(), region);
    EXPECT_THAT(blurRegion(), ElementsAre(3U, 0U, 454U, 1U, 0U, 1U, 460U, 219U));
    room.nativeWindows->blurBehind(panel_.handle(), {});
    EXPECT_TRUE(blurRegion().empty());
}

TEST_F(BackdropOnX11Tests, aWindowIsCutToItsShapeAndWholeAgain)
{
    const PixelRegion shape = {{3, 0, 454, 1}, {0, 1, 460, 219}};
    room.nativeWindows->cutToShape(panel_.handle(), shape);
    EXPECT_EQ(boundingShape(), shape);
    room.nativeWindows->cutToShape(panel_.handle(), {});
    EXPECT_EQ(boundingShape(), PixelRegion({{0, 0, 460, 220}}));
}

TEST_F(BackdropOnX11Tests, aWindowThatHasNoShapeIsLeftAlone)
{
    panel_.winId();
    auto* raw = room.toolkitWindows->raw();
    // The numbers of requests are consecutive.
    const auto numberOfRequest = [raw] { return xcb_no_operation(raw).sequence; };
    const auto before = numberOfRequest();
    room.nativeWindows->cutToShape(panel_.handle(), {});
    EXPECT_EQ(numberOfRequest(), before + 1);
}

} // namespace
} // namespace tessel
