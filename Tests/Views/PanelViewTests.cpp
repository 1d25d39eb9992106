#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtTest/QTest>

#include "Panel/ColorView.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

using Section = ListLayout::Section;

std::vector<Section> sections(const PanelDesktop& desktop)
{
    std::vector<Section> sections;
    for (const ListLayout::Caption& caption : desktop.list().layout().captions())
        sections.push_back(caption.section);
    return sections;
}

std::vector<std::string> listedTexts(const PanelDesktop& desktop)
{
    std::vector<std::string> texts;
    for (const ClipboardItem& item : desktop.list().items())
        texts.push_back(*std::get<SharedText>(item.content));
    return texts;
}

bool isWhollyInView(const PanelDesktop& desktop, std::string_view text)
{
    return desktop.list().rect().contains(desktop.list().rowRectangle(desktop.item(text).id).value());
}

} // namespace

TEST(PanelView, ShowsAMessageWhereThereIsNoHistory)
{
    PanelDesktop desktop;
    desktop.openPanel();
    EXPECT_THAT(desktop.visibleLabels(), ElementsAre("Clipboard", "0 items", "Clipboard is empty",
                                                     "Copy something and it will appear here."));
    EXPECT_FALSE(desktop.list().isVisible());
    EXPECT_FALSE(desktop.view().selectedItemID());
}

TEST(PanelView, IgnoresItsKeysWhereThereIsNoHistory)
{
    PanelDesktop desktop;
    desktop.openPanel();
    desktop.press(Qt::Key_Up);
    desktop.press(Qt::Key_Down);
    desktop.press(Qt::Key_Return);
    desktop.press(Qt::Key_Delete, Qt::ControlModifier);
    desktop.press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_FALSE(desktop.view().selectedItemID());
    EXPECT_FALSE(desktop.pasteboard->textOnBoard());
    EXPECT_TRUE(desktop.controller().isWindowVisible());
    desktop.press(Qt::Key_Escape);
    EXPECT_FALSE(desktop.state->panelController);
}

TEST(PanelView, CountsItsEntriesWithoutASingular)
{
    PanelDesktop desktop;
    desktop.copy("a");
    desktop.openPanel();
    EXPECT_THAT(desktop.visibleLabels(), ElementsAre("Clipboard", "1 items"));
    desktop.copy("b");
    runMainLoop();
    EXPECT_THAT(desktop.visibleLabels(), Contains("2 items"));
}

TEST(PanelView, SelectsTheFirstEntryWhenItAppears)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B", "C"});
    desktop.openPanel();
    EXPECT_EQ(desktop.selectedText(), "C");
}

TEST(PanelView, KeepsTheOnlyEntrySelected)
{
    PanelDesktop desktop;
    desktop.copy("A");
    desktop.openPanel();
    desktop.press(Qt::Key_Up);
    EXPECT_EQ(desktop.selectedText(), "A");
    desktop.press(Qt::Key_Down);
    EXPECT_EQ(desktop.selectedText(), "A");
}

TEST(PanelView, StopsAtTheLastEntry)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B", "C"});
    desktop.openPanel();
    desktop.press(Qt::Key_Down);
    desktop.press(Qt::Key_Down);
    ASSERT_EQ(desktop.selectedText(), "A");
    for (int time = 0; time < 3; ++time)
        desktop.press(Qt::Key_Down);
    EXPECT_EQ(desktop.selectedText(), "A");
}

TEST(PanelView, ShowsPinnedEntriesFirstAndMovesThroughBothSections)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B", "C"});
    desktop.pin("A");
    desktop.pin("C");
    desktop.openPanel();
    EXPECT_THAT(sections(desktop), ElementsAre(Section::pinned, Section::recent));
    EXPECT_THAT(listedTexts(desktop), ElementsAre("C", "A", "B"));
    EXPECT_EQ(desktop.selectedText(), "C");
    desktop.press(Qt::Key_Down);
    EXPECT_EQ(desktop.selectedText(), "A");
    desktop.press(Qt::Key_Down);
    EXPECT_EQ(desktop.selectedText(), "B");
}

TEST(PanelView, ShowsNoSectionWithoutEntries)
{
    PanelDesktop desktop;
    desktop.copy("A");
    desktop.openPanel();
    EXPECT_THAT(sections(desktop), ElementsAre(Section::recent));
    desktop.pin("A");
    runMainLoop();
    EXPECT_THAT(sections(desktop), ElementsAre(Section::pinned));
}

TEST(PanelView, SelectsTheFirstEntryAfterTheSelectedOneIsDeleted)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B", "C"});
    desktop.openPanel();
    desktop.press(Qt::Key_Down);
    desktop.press(Qt::Key_Backspace, Qt::ControlModifier);
    runMainLoop();
    EXPECT_THAT(listedTexts(desktop), ElementsAre("C", "A"));
    EXPECT_EQ(desktop.selectedText(), "C");
}

TEST(PanelView, ObeysKeysThatComeFasterThanItIsUpdated)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B", "C", "D"});
    desktop.openPanel();
    desktop.press(Qt::Key_Backspace, Qt::ControlModifier);
    desktop.press(Qt::Key_Backspace, Qt::ControlModifier);
    desktop.press(Qt::Key_Down);
    EXPECT_THAT(listedTexts(desktop), ElementsAre("B", "A"));
    EXPECT_EQ(desktop.selectedText(), "A");
}

TEST(PanelView, ClearsEverythingAtOnce)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B"});
    desktop.pin("A");
    desktop.openPanel();
    desktop.clickButton("Clear all");
    EXPECT_TRUE(desktop.state->history->empty());
    EXPECT_TRUE(desktop.state->pinnedItemIDs->empty());
    runMainLoop();
    EXPECT_THAT(desktop.visibleLabels(), Contains("Clipboard is empty"));
    EXPECT_FALSE(desktop.view().selectedItemID());
    desktop.clickButton("Clear all"); // Never disabled.
    desktop.copy("C");
    runMainLoop();
    EXPECT_THAT(desktop.visibleLabels(), Not(Contains("Clipboard is empty")));
    EXPECT_EQ(desktop.selectedText(), "C");
}

TEST(PanelView, KeepsTheSelectionWhenAnEntryIsCaptured)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B"});
    desktop.openPanel();
    desktop.press(Qt::Key_Down);
    desktop.copy("C");
    runMainLoop();
    EXPECT_THAT(listedTexts(desktop), ElementsAre("C", "B", "A"));
    EXPECT_EQ(desktop.selectedText(), "A");
}

TEST(PanelView, KeepsTheSelectionOnAnEntryThatIsPinned)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B"});
    desktop.openPanel();
    desktop.press(Qt::Key_Down);
    desktop.press(Qt::Key_P, Qt::ControlModifier);
    runMainLoop();
    EXPECT_THAT(listedTexts(desktop), ElementsAre("A", "B"));
    EXPECT_EQ(desktop.selectedText(), "A");
    EXPECT_TRUE(desktop.state->pinnedItemIDs->contains(desktop.item("A").id));
}

TEST(PanelView, KeepsAnEntryInViewThatIsPinnedByKey)
{
    PanelDesktop desktop;
    for (int number = 0; number < 30; ++number)
        desktop.copy("entry " + std::to_string(number));
    desktop.openPanel();
    for (int step = 0; step < 29; ++step)
        desktop.press(Qt::Key_Down);
    desktop.press(Qt::Key_P, Qt::ControlModifier);
    runMainLoop();
    EXPECT_TRUE(isWhollyInView(desktop, "entry 0"));
}

TEST(PanelView, PastesTheSelectedEntryOnReturn)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B"});
    desktop.openPanel();
    desktop.press(Qt::Key_Down);
    desktop.press(Qt::Key_Return);
    EXPECT_EQ(*desktop.pasteboard->textOnBoard(), "A");
    EXPECT_FALSE(desktop.state->panelController);
}

TEST(PanelView, ForgetsItsSelectionWithEachOpening)
{
    PanelDesktop desktop;
    desktop.copyAll({"A", "B"});
    desktop.openPanel();
    desktop.press(Qt::Key_Down);
    desktop.clickButton("Close");
    EXPECT_FALSE(desktop.state->panelController);
    runMainLoop();
    desktop.openPanel();
    EXPECT_EQ(desktop.selectedText(), "B");
}

TEST(PanelView, ClosesOnTheSystemsExitCommand)
{
    PanelDesktop desktop;
    desktop.openPanel();
    desktop.press(Qt::Key_Cancel);
    EXPECT_FALSE(desktop.state->panelController);
}

TEST(PanelView, KeepsTheSelectionInViewWhileItMoves)
{
    PanelDesktop desktop;
    for (int number = 0; number < 30; ++number)
        desktop.copy("entry " + std::to_string(number));
    desktop.openPanel();
    for (int step = 0; step < 29; ++step) {
        desktop.press(Qt::Key_Down);
        ASSERT_TRUE(isWhollyInView(desktop, desktop.selectedText())) << desktop.selectedText();
    }
    EXPECT_EQ(desktop.list().scrollPosition().offset(), desktop.list().scrollPosition().maximum());
    for (int step = 0; step < 29; ++step) {
        desktop.press(Qt::Key_Up);
        ASSERT_TRUE(isWhollyInView(desktop, desktop.selectedText())) << desktop.selectedText();
    }
    EXPECT_EQ(desktop.list().scrollPosition().offset(), 0);
}

TEST(PanelView, ShowsChangesOnTheNextTurnOnly)
{
    PanelDesktop desktop;
    desktop.copy("A");
    desktop.openPanel();
    desktop.copyAll({"B", "C"});
    EXPECT_THAT(listedTexts(desktop), ElementsAre("A"));
    runMainLoop();
    EXPECT_THAT(listedTexts(desktop), ElementsAre("C", "B", "A"));
}

TEST(PanelView, FollowsTheTintSettingWhileOpen)
{
    PanelDesktop desktop;
    desktop.openPanel();
    const auto* tint = desktop.view().findChild<ColorView*>();
    EXPECT_EQ(tint->color(), QColor::fromRgbF(0, 0, 0, 0.25F));
    desktop.state->panelTintOpacity = 0.6;
    runMainLoop();
    EXPECT_EQ(tint->color(), QColor::fromRgbF(0, 0, 0, 0.6F));
}

TEST(PanelView, TintsFromNothingToBlack)
{
    for (const double opacity : {0.0, 1.0}) {
        PanelDesktop desktop;
        desktop.defaults->setDouble(AppState::panelOpacityKey, opacity);
        desktop.relaunch();
        desktop.openPanel();
        EXPECT_EQ(desktop.view().findChild<ColorView*>()->color().alphaF(), static_cast<float>(opacity));
    }
}

TEST(PanelView, OutlivesTheStateByATurn)
{
    PanelDesktop desktop;
    desktop.copy("A");
    desktop.openPanel();
    const QPointer<ClipboardPanelWindow> window = &desktop.window();
    desktop.copy("B"); // An update is on its way.
    desktop.quit();
    ASSERT_TRUE(window);
    EXPECT_FALSE(window->isVisible());
    QTest::keyClick(&window->contentView()->keyCapture(), Qt::Key_Down);
    QTest::keyClick(&window->contentView()->keyCapture(), Qt::Key_Escape);
    runMainLoop();
    EXPECT_FALSE(window);
}

TEST(PanelView, HasNamesForThoseWhoDoNotSeeIt)
{
    PanelDesktop desktop;
    desktop.openPanel();
    EXPECT_EQ(desktop.window().windowTitle(), QStringLiteral("Clipboard"));
    EXPECT_EQ(desktop.view().keyCapture().accessibleName(), QStringLiteral("Clipboard history"));
}

} // namespace tessel::test
