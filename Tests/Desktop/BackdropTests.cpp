// What is behind the panel, as it shines through.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <optional>

#include "ClipboardOwner.h"
#include "Monitors.h"
#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

constexpr Extent screen{1280, 1024};
constexpr Colour red{255, 0, 0};
constexpr Colour green{0, 255, 0};

/// Upright stripes of two colours over the whole screen.
Picture stripes(int width, Colour first, Colour second)
{
    Picture picture{screen.width, screen.height, {}};
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x)
            picture.pixels.push_back(x / width % 2 == 0 ? first : second);
    }
    return picture;
}

/// Paints the desktop, and waits until a compositor, too, shows it: the program would take a picture of what
/// was there before.
void showOnDesktop(Desktop& desktop, const Picture& picture)
{
    desktop.pixels().paintBackground(picture);
    desktop.connection().waitUntil("the desktop to be painted", [&] {
        const auto [width, height] = desktop.screen();
        const Picture row = desktop.pixels().read({0, height - 1, width, 1});
        return std::equal(row.pixels.begin(), row.pixels.end(), picture.pixels.begin());
    });
}

int brightest(const Colour& colour)
{
    return std::max({colour[0], colour[1], colour[2]});
}

/// Of the colour model that knows hue, saturation and value: 0 for greys, 1 for pure colours.
double saturation(const Colour& colour)
{
    const int most = brightest(colour);
    return most == 0 ? 0 : static_cast<double>(most - std::min({colour[0], colour[1], colour[2]})) / most;
}

int difference(const Colour& one, const Colour& other)
{
    int most = 0;
    for (std::size_t channel = 0; channel < one.size(); ++channel)
        most = std::max(most, std::abs(one[channel] - other[channel]));
    return most;
}

class BackdropTest : public ProgramTest {
protected:
    explicit BackdropTest(DesktopOptions options = {})
        : ProgramTest(options)
    {}

    int pixels(int points) const { return static_cast<int>(std::lround(points * desktop_.scale())); }

    /// The part of the card below everything that an empty panel says.
    Picture bareStrip()
    {
        const Frame card = program_->panel().find().value().frame;
        const int margin = pixels(20);
        return desktop_.pixels().read(
            {card.x + margin, card.y + card.height - pixels(50), card.width - 2 * margin, pixels(40)});
    }
    Picture openAndReadBareStrip()
    {
        program_->openPanel();
        return darkBareStrip();
    }
    /// Of the open panel, once a compositor, too, shows what the program has painted: it is dark.
    Picture darkBareStrip()
    {
        Picture strip;
        desktop_.connection().waitUntil("the card", [&] {
            strip = bareStrip();
            return std::all_of(strip.pixels.begin(), strip.pixels.end(),
                               [](const Colour& colour) { return brightest(colour) <= 60; });
        });
        return strip;
    }

    void copyIntoOpenPanel(const std::vector<std::string>& texts)
    {
        ClipboardOwner owner(desktop_.displayName());
        const auto before = program_->panel().picture();
        owner.copyText(texts.front());
        program_->panel().waitUntilItDiffersFrom(before);
        // The second entry on, each makes the panel higher.
        for (std::size_t count = 2; count <= texts.size(); ++count) {
            owner.copyText(texts[count - 1]);
            program_->panel().waitForHeight(pixels(Panel::heightFor(count)));
        }
    }

    /// Opens the card where there is one colour at its left, and another at its right.
    void expectWideStripesWithoutTheirEdges()
    {
        const int width = pixels(200);
        showOnDesktop(desktop_, stripes(width, red, green));
        // The card lies on a green stripe, on the red one at its right, and a little on the next.
        desktop_.pointer().moveTo({width - pixels(12), pixels(30)});
        const Picture strip = openAndReadBareStrip();
        expectNoEdges(strip);
        const Colour& left = strip.at(pixels(80), strip.height / 2);
        const Colour& right = strip.at(pixels(280), strip.height / 2);
        EXPECT_GT(left[1], left[0] + 8);
        EXPECT_GT(right[0], right[1] + 8);
        // The next green stripe shines in.
        const Colour& end = strip.at(pixels(418), strip.height / 2);
        EXPECT_LT(end[0] - end[1], (right[0] - right[1]) / 2);
        for (const Colour& colour : strip.pixels) {
            ASSERT_LE(brightest(colour), 50);
            ASSERT_LE(saturation(colour), 0.85);
        }
    }

    static void expectNoEdges(const Picture& strip)
    {
        constexpr int hardlyVisible = 2;
        for (int y = 1; y < strip.height; ++y) {
            for (int x = 1; x < strip.width; ++x) {
                ASSERT_LE(difference(strip.at(x, y), strip.at(x - 1, y)), hardlyVisible) << x << ',' << y;
                ASSERT_LE(difference(strip.at(x, y), strip.at(x, y - 1)), hardlyVisible) << x << ',' << y;
            }
        }
    }
};

using Surroundings = std::tuple<CompositorChoice, double>;

class BlurredBackdropTest : public BackdropTest, public testing::WithParamInterface<Surroundings> {
protected:
    BlurredBackdropTest()
        : BackdropTest(
              {.compositor = std::get<CompositorChoice>(GetParam()), .scale = std::get<double>(GetParam())})
    {}
};

TEST_P(BlurredBackdropTest, WideStripesShowThroughWithoutTheirEdges)
{
    expectWideStripesWithoutTheirEdges();
}

TEST_P(BlurredBackdropTest, NarrowStripesBecomeOneColour)
{
    showOnDesktop(desktop_, stripes(pixels(8), red, green));
    const Picture strip = openAndReadBareStrip();
    const Colour& middle = strip.at(strip.width / 2, strip.height / 2);
    for (const Colour& colour : strip.pixels)
        ASSERT_LE(difference(colour, middle), 2)
            << testing::PrintToString(colour) << " and " << testing::PrintToString(middle);
    EXPECT_LE(std::abs(middle[0] - middle[1]), 6);
}

std::string nameOf(const testing::TestParamInfo<Surroundings>& surroundings)
{
    const bool isComposited = std::get<CompositorChoice>(surroundings.param) == CompositorChoice::picom;
    const auto percent = std::lround(100 * std::get<double>(surroundings.param));
    return (isComposited ? "Picom" : "NoCompositor") + std::to_string(percent);
}

INSTANTIATE_TEST_SUITE_P(Backdrop, BlurredBackdropTest,
                         testing::Combine(testing::Values(CompositorChoice::none, CompositorChoice::picom),
                                          testing::Values(1.0, 1.5, 2.0)),
                         nameOf);

/// The scale is that of a monitor beside the primary one, whose scale is 1.
class OtherMonitorBackdropTest : public BackdropTest, public testing::WithParamInterface<Surroundings> {
protected:
    OtherMonitorBackdropTest()
        : BackdropTest({.compositor = std::get<CompositorChoice>(GetParam()),
                        .scale = std::get<double>(GetParam()),
                        .variables = {{"QT_SCALE_FACTOR", "1"},
                                      {"QT_SCREEN_SCALE_FACTORS",
                                       "left=1;right=" + std::to_string(std::get<double>(GetParam()))}}})
    {}

    void SetUp() override
    {
        constexpr int edge = 200;
        Monitors(desktop_).set({{"left", {0, 0, edge, screen.height}},
                                {"right", {edge, 0, screen.width - edge, screen.height}}});
        ProgramTest::SetUp();
    }
};

TEST_P(OtherMonitorBackdropTest, WideStripesShowThroughWithoutTheirEdges)
{
    expectWideStripesWithoutTheirEdges();
}

INSTANTIATE_TEST_SUITE_P(Backdrop, OtherMonitorBackdropTest,
                         testing::Combine(testing::Values(CompositorChoice::none, CompositorChoice::picom),
                                          testing::Values(1.5, 2.0)),
                         nameOf);

TEST_F(BackdropTest, AnOpeningThatStartsTheProgramHasIt)
{
    endProgram();
    showOnDesktop(desktop_, stripes(pixels(8), red, red));
    program_.emplace(desktop_, std::vector<std::string>{"--show"});
    program_->panel().waitUntilOpen();
    const Picture strip = darkBareStrip();
    const Colour& middle = strip.at(strip.width / 2, strip.height / 2);
    EXPECT_GT(middle[0], middle[1] + 8);
    program_->closePanel();
}

TEST_F(BackdropTest, ADragDoesNotChangeIt)
{
    showOnDesktop(desktop_, stripes(200, red, green));
    desktop_.pointer().moveTo({150, 40});
    const Picture before = openAndReadBareStrip();
    const Frame start = program_->panel().find().value().frame;
    constexpr Place grip{220, 14};
    constexpr int way = 130;
    auto& pointer = desktop_.pointer();
    pointer.moveTo({start.x + grip.x, start.y + grip.y});
    pointer.press();
    desktop_.connection().waitUntil("the panel to follow the pointer", [&] {
        if (program_->panel().find().value().frame.x >= start.x + way)
            return true;
        const auto place = pointer.location();
        pointer.moveTo({place.x + 4, place.y});
        return false;
    });
    pointer.release();
    desktop_.pixels().readQuietScreen();
    EXPECT_EQ(bareStrip(), before);
    program_->closePanel();
}

TEST_F(BackdropTest, ItContinuesWhenThePanelGrows)
{
    showOnDesktop(desktop_, stripes(230, red, green));
    // Left half red, right half green; the panel grows to where the pointer is.
    desktop_.pointer().moveTo({460 - 12, 40});
    openAndReadBareStrip();
    copyIntoOpenPanel({"A", "B", "C"});
    program_->panel().waitForHeight(Panel::heightFor(3));
    Picture strip;
    desktop_.connection().waitUntil("the larger card", [&] {
        const Frame card = program_->panel().find().value().frame;
        strip = desktop_.pixels().read({card.x + 20, card.y + card.height - 20, card.width - 40, 16});
        return std::all_of(strip.pixels.begin(), strip.pixels.end(),
                           [](const Colour& colour) { return brightest(colour) <= 50; });
    });
    expectNoEdges(strip);
    EXPECT_GT(strip.at(60, 8)[0], strip.at(60, 8)[1] + 8);
    EXPECT_GT(strip.at(360, 8)[1], strip.at(360, 8)[0] + 8);
    program_->closePanel();
}

/// A compositing manager by name, which says that it blurs and does not.
class PretendedBlur {
public:
    explicit PretendedBlur(Desktop& desktop)
        : connection_(desktop.displayName())
    {
        auto* raw = connection_.get();
        const auto window = xcb_generate_id(raw);
        xcb_create_window(raw, 0, window, connection_.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(raw, window, connection_.atom("_NET_WM_CM_S0"), XCB_CURRENT_TIME);
        constexpr std::uint32_t anything = 0;
        const auto name = connection_.atom("_KDE_NET_WM_BLUR_BEHIND_REGION");
        xcb_change_property(raw, XCB_PROP_MODE_REPLACE, connection_.root(), name, name, 32, 1, &anything);
        connection_.synchronize();
    }

private:
    XConnection connection_;
};

class BlurRegionTest : public BackdropTest, public testing::WithParamInterface<double> {
protected:
    BlurRegionTest()
        : BackdropTest({.scale = GetParam()})
    {}

    std::vector<std::uint32_t> region()
    {
        return desktop_.connection().propertyItems(program_->panel().find().value().window,
                                                   "_KDE_NET_WM_BLUR_BEHIND_REGION");
    }

    /// The region has the extent of the window, its corners are missing, and nothing else.
    void waitForRoundRegion()
    {
        desktop_.connection().waitUntil("a round region of the panel's extent", [this] {
            const Frame card = program_->panel().find().value().frame;
            const auto items = region();
            if (items.size() < 8 || items.size() % 4 != 0)
                return false;
            std::uint32_t area = 0;
            for (std::size_t part = 0; part < items.size(); part += 4)
                area += items[part + 2] * items[part + 3];
            const auto width = static_cast<std::uint32_t>(card.width);
            const auto height = static_cast<std::uint32_t>(card.height);
            const std::size_t last = items.size() - 4;
            const double radius = 14 * desktop_.scale();
            const double missing = width * height - area;
            // A circle of that radius leaves 0.86 of its square in the four corners, a continuous corner a
            // little more.
            return items[0] > 0 && items[1] == 0 && items[2] == width - 2 * items[0] &&
                   items[last + 1] + items[last + 3] == height && missing > 0.8 * radius * radius &&
                   missing < 1.3 * radius * radius;
        });
    }
};

TEST_P(BlurRegionTest, ACompositorThatBlursIsAskedToBlurBehindTheRoundCard)
{
    std::optional<PretendedBlur> compositor(desktop_);
    restartProgram();
    program_->openPanel();
    waitForRoundRegion();
    copyIntoOpenPanel({"A", "B", "C"});
    program_->panel().waitForHeight(pixels(Panel::heightFor(3)));
    waitForRoundRegion();
    program_->closePanel();

    compositor.reset();
    desktop_.connection().waitUntil("a panel that asks for no blur", [this] {
        program_->openPanel();
        const bool isAsked = !region().empty();
        program_->closePanel();
        return !isAsked;
    });
}

INSTANTIATE_TEST_SUITE_P(Backdrop, BlurRegionTest, testing::Values(1.0, 1.25, 2.0));

/// The corners do not tell whether there is a compositor.
class CornerTest : public testing::TestWithParam<double> {
protected:
    /// The open card, once it is as `condition` wants it; a compositor paints a little later than the
    /// program.
    static Picture card(CompositorChoice compositor, const std::function<bool(const Picture&)>& condition)
    {
        Desktop desktop({.compositor = compositor, .scale = GetParam()});
        showOnDesktop(desktop, stripes(1, {250, 240, 60}, {200, 250, 255}));
        desktop.pointer().moveTo({101, 67});
        Program program(desktop);
        const auto panel = program.openPanel();
        EXPECT_EQ(panel.frame.height, static_cast<int>(std::lround(220 * GetParam())));
        Picture picture;
        desktop.connection().waitUntil("the card as it has to be", [&] {
            picture = desktop.pixels().read(panel.frame);
            return condition(picture);
        });
        EXPECT_TRUE(program.quit().succeeded());
        return picture;
    }

    static bool haveTheSameCorners(const Picture& one, const Picture& other)
    {
        const int side = static_cast<int>(std::lround(24 * GetParam()));
        for (const int left : {0, one.width - side}) {
            for (const int top : {0, one.height - side}) {
                for (int y = top; y < top + side; ++y) {
                    for (int x = left; x < left + side; ++x) {
                        if (difference(one.at(x, y), other.at(x, y)) > 3)
                            return false;
                    }
                }
            }
        }
        return true;
    }
};

TEST_P(CornerTest, WithoutACompositorTheyAreAsSmoothAsWithOne)
{
    const auto isDark = [](const Picture& picture) {
        return brightest(picture.at(picture.width / 2, picture.height - 10)) <= 60;
    };
    const Picture without = card(CompositorChoice::none, isDark);
    card(CompositorChoice::picom, [&](const Picture& with) { return haveTheSameCorners(with, without); });
}

INSTANTIATE_TEST_SUITE_P(Backdrop, CornerTest, testing::Values(1.0, 1.25, 1.5, 2.0));

} // namespace

} // namespace tessel::desktop
