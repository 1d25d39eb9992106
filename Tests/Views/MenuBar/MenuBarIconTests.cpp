// The symbol of the menu-bar extra, in its pixels.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "MenuBar/MenuBarIcon.h"

namespace tessel::test {

namespace {

std::uint32_t alphaOf(std::uint32_t pixel)
{
    return pixel >> 24;
}
std::uint32_t greenOf(std::uint32_t pixel)
{
    return pixel >> 8 & 0xFF;
}

/// Of a symbol for a bright panel, apart from its bright edge.
bool isInk(std::uint32_t pixel)
{
    return alphaOf(pixel) > 0 && greenOf(pixel) < 128;
}

/// Of the pixels with any of the symbol on them, those that are covered wholly.
double sharpness(const StatusIcon& icon)
{
    const auto inked = std::ranges::count_if(icon.pixels, isInk);
    const auto full = std::ranges::count_if(
        icon.pixels, [](auto pixel) { return alphaOf(pixel) == 255 && greenOf(pixel) < 50; });
    return static_cast<double>(full) / static_cast<double>(inked);
}

class MenuBarIconSize : public testing::TestWithParam<int> {};

TEST_P(MenuBarIconSize, HasThatManyPixels)
{
    const StatusIcon icon = menuBarIcon(GetParam(), ColorScheme::light);
    EXPECT_EQ(icon.size, GetParam());
    EXPECT_EQ(icon.pixels.size(),
              static_cast<std::size_t>(GetParam()) * static_cast<std::size_t>(GetParam()));
}

TEST_P(MenuBarIconSize, IsDrawnOnWholePixels)
{
    EXPECT_GT(sharpness(menuBarIcon(GetParam(), ColorScheme::light)), 0.8);
}

TEST_P(MenuBarIconSize, IsInTheMiddle)
{
    const StatusIcon icon = menuBarIcon(GetParam(), ColorScheme::light);
    int left = icon.size;
    int right = 0;
    int top = icon.size;
    int bottom = 0;
    for (int y = 0; y < icon.size; ++y) {
        for (int x = 0; x < icon.size; ++x) {
            if (!isInk(icon.pixels[static_cast<std::size_t>(y * icon.size + x)]))
                continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    EXPECT_EQ(left, icon.size - 1 - right);
    EXPECT_EQ(top, icon.size - 1 - bottom);
    EXPECT_GE(bottom - top + 1, icon.size * 3 / 4);
}

INSTANTIATE_TEST_SUITE_P(OfPanels, MenuBarIconSize, testing::Values(16, 18, 22, 24, 32, 44, 48));

TEST(MenuBarIcon, FillsAPanelOfAnySize)
{
    for (int pixels = 1; pixels <= 128; ++pixels) {
        const StatusIcon icon = menuBarIcon(pixels, ColorScheme::light);
        ASSERT_EQ(icon.pixels.size(), static_cast<std::size_t>(pixels * pixels));
        EXPECT_TRUE(std::ranges::any_of(icon.pixels, [](auto pixel) { return alphaOf(pixel) > 0; }))
            << pixels;
    }
    EXPECT_EQ(menuBarIcon(0, ColorScheme::light).size, 0);
}

TEST(MenuBarIcon, IsSeenOnAPanelOfTheOtherKindToo)
{
    const StatusIcon icon = menuBarIcon(22, ColorScheme::light);
    EXPECT_TRUE(std::ranges::any_of(icon.pixels,
                                    [](auto pixel) { return alphaOf(pixel) > 150 && greenOf(pixel) > 230; }));
}

TEST(MenuBarIcon, IsBrightOnADarkPanelAndDarkOnABrightOne)
{
    for (const auto pixel : menuBarIcon(22, ColorScheme::dark).pixels)
        EXPECT_TRUE(alphaOf(pixel) < 255 || greenOf(pixel) > 230);
    for (const auto pixel : menuBarIcon(22, ColorScheme::light).pixels)
        EXPECT_TRUE(alphaOf(pixel) < 255 || greenOf(pixel) < 50);
}

} // namespace

} // namespace tessel::test
