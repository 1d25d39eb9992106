// What is behind the panel, as it shines through.

#include <cmath>
#include <cstdlib>
#include <set>

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
    /// The same once a compositor, too, shows what the program has painted: it is dark.
    Picture openAndReadBareStrip()
    {
        program_->openPanel();
        Picture strip;
        desktop_.connection().waitUntil("the card", [&] {
            strip = bareStrip();
            return std::all_of(strip.pixels.begin(), strip.pixels.end(),
                               [](const Colour& colour) { return brightest(colour) <= 60; });
        });
        return strip;
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
    const int width = pixels(200);
    desktop_.pixels().paintBackground(stripes(width, red, green));
    // The card lies on a green stripe, on the red one at its right, and a little on the next.
    desktop_.pointer().moveTo({width - pixels(12), pixels(30)});
    const Picture strip = openAndReadBareStrip();
    expectNoEdges(strip);
    const Colour& left = strip.at(pixels(80), strip.height / 2);
    const Colour& right = strip.at(pixels(280), strip.height / 2);
    EXPECT_GT(left[1], left[0] + 8);
    EXPECT_GT(right[0], right[1] + 8);
    for (const Colour& colour : strip.pixels) {
        ASSERT_LE(brightest(colour), 50);
        ASSERT_LE(saturation(colour), 0.8);
    }
}

TEST_P(BlurredBackdropTest, NarrowStripesBecomeOneColour)
{
    desktop_.pixels().paintBackground(stripes(pixels(8), red, green));
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

} // namespace

} // namespace tessel::desktop
