// The menu-bar extra's rows, and where its menu opens.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "AppState.h"
#include "Fakes/PrintGeometry.h"
#include "MenuBar/MenuBarRows.h"

namespace tessel::test {

namespace {

using Kind = StatusMenuRow::Kind;

MenuBarRow action(std::string_view title, void (AppState::*command)())
{
    return {Kind::action, title, "", command};
}

TEST(MenuBarRows, AreNineInTheirOrderWithTheirTextsAndCommands)
{
    const MenuBarRow separator = {Kind::separator, "", "", nullptr};
    EXPECT_TRUE((menuBarRows(HotKeyPreset::cmdShiftV) ==
                 std::array<MenuBarRow, 9>{{
                     {Kind::header, "Tessel Clipboard", "Cmd + Shift + V", nullptr},
                     separator,
                     action("Open History", &AppState::showPanel),
                     action("Clear history", &AppState::clearHistory),
                     action("Settings", &AppState::showSettingsWindow),
                     action("Check for Updates...", &AppState::checkForUpdates),
                     action("About", &AppState::showAboutWindow),
                     separator,
                     action("Quit", &AppState::terminate),
                 }}));
}

TEST(MenuBarRows, TheHeaderTellsTheCombination)
{
    EXPECT_EQ(menuBarRows(HotKeyPreset::ctrlShiftV).front().caption, "Ctrl + Shift + V");
    EXPECT_EQ(menuBarRows(HotKeyPreset::cmdOptionV).front().caption, "Cmd + Option + V");
}

TEST(MenuBarRows, OnlyTheHeaderChangesWithThePreset)
{
    const auto one = menuBarRows(HotKeyPreset::cmdShiftV);
    const auto other = menuBarRows(HotKeyPreset::cmdOptionV);
    EXPECT_TRUE(std::equal(one.begin() + 1, one.end(), other.begin() + 1));
}

TEST(MenuBarRows, TheItemIsCalledClipboard)
{
    EXPECT_EQ(menuBarTitle, "Clipboard");
    EXPECT_EQ(menuBarSymbolName, "document.on.clipboard.fill");
}

/// A screen of 1000 x 800 points with a bar of 30 at the top and one of 40 at the bottom.
constexpr Rect visibleFrame = {{0, 40}, {1000, 730}};
constexpr Size menu = {240, 300};

TEST(MenuOrigin, HangsDownFromTheClick)
{
    EXPECT_EQ(menuOrigin({500, 600}, menu, visibleFrame), (Point{500, 300}));
}

TEST(MenuOrigin, BeginsWhereTheBarAtTheTopEnds)
{
    EXPECT_EQ(menuOrigin({500, 790}, menu, visibleFrame), (Point{500, 470}));
}

TEST(MenuOrigin, StandsOnTheBarAtTheBottom)
{
    EXPECT_EQ(menuOrigin({500, 10}, menu, visibleFrame), (Point{500, 40}));
}

TEST(MenuOrigin, StandsOnTheClickWithoutRoomBelow)
{
    EXPECT_EQ(menuOrigin({500, 200}, menu, visibleFrame), (Point{500, 200}));
}

TEST(MenuOrigin, StaysInsideTheRightEdge)
{
    EXPECT_EQ(menuOrigin({990, 790}, menu, visibleFrame), (Point{760, 470}));
}

TEST(MenuOrigin, StaysInsideTheLeftEdgeOfASecondScreen)
{
    EXPECT_EQ(menuOrigin({1010, 600}, menu, {{1030, 0}, {970, 800}}), (Point{1030, 300}));
}

TEST(MenuOrigin, ATooLargeMenuShowsItsFirstRow)
{
    EXPECT_EQ(menuOrigin({500, 600}, {1200, 900}, visibleFrame), (Point{0, -130}));
}

} // namespace

} // namespace tessel::test
