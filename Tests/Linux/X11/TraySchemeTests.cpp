// Whether a system tray is dark.

#include <gtest/gtest.h>

#include <array>

#include "X11/TrayScheme.h"

namespace tessel {

namespace {

/// Three by three pixels of one colour, and another one in their middle.
ScreenPicture pictureOf(std::uint32_t around, std::uint32_t middle)
{
    ScreenPicture picture{{0, 0, 3, 3}, 1, 3, 3, std::vector<std::uint32_t>(9, around)};
    picture.pixels[4] = middle;
    return picture;
}

TEST(TrayScheme, ATrayThatWantsBrightIconsIsDark)
{
    constexpr std::array<std::uint32_t, 12> bright = {60000, 60000, 60000};
    constexpr std::array<std::uint32_t, 12> dark = {9000, 9000, 9000};
    EXPECT_EQ(schemeOfTrayColors(bright), ColorScheme::dark);
    EXPECT_EQ(schemeOfTrayColors(dark), ColorScheme::light);
}

TEST(TrayScheme, ATrayWithoutColoursSaysNothing)
{
    constexpr std::array<std::uint32_t, 2> cut = {60000, 60000};
    EXPECT_EQ(schemeOfTrayColors({}), std::nullopt);
    EXPECT_EQ(schemeOfTrayColors(cut), std::nullopt);
}

TEST(TrayScheme, TheOutermostPixelsTellWhatIsAroundAnIcon)
{
    EXPECT_EQ(schemeAround(pictureOf(0xFFEEEEEE, 0xFF000000)), ColorScheme::light);
    EXPECT_EQ(schemeAround(pictureOf(0xFF202020, 0xFFFFFFFF)), ColorScheme::dark);
}

TEST(TrayScheme, AGreenIsBrighterThanABlue)
{
    EXPECT_EQ(schemeAround(pictureOf(0xFF00E000, 0)), ColorScheme::light);
    EXPECT_EQ(schemeAround(pictureOf(0xFF0000E0, 0)), ColorScheme::dark);
}

TEST(TrayScheme, WithoutAPictureItIsNotKnown)
{
    EXPECT_EQ(schemeAround({}), std::nullopt);
}

} // namespace

} // namespace tessel
