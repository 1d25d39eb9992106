// The menu-bar extra: what it gives the menu bar, what its rows do, and its menu as a window of our own.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include <QtGui/QAccessible>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include "Fakes/FakeStatusItem.h"
#include "MenuBar/MenuBarExtra.h"
#include "MenuBar/MenuBarMenu.h"
#include "Support/PanelDesktop.h"
#include "Windows/SecondaryWindowController.h"

namespace tessel::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class MenuBarExtraTest : public testing::Test {
protected:
    MenuBarExtraTest()
    {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        const Rect frame = {{0, 0},
                            {static_cast<double>(screen.width()), static_cast<double>(screen.height())}};
        Rect visible = frame;
        visible.size.height -= barHeight;
        desktop_.screens->all = {{frame, visible}};
        desktop_.screens->main = desktop_.screens->all.front();
        extra_.emplace(*desktop_.state, item_, desktop_.theme, *desktop_.screens);
    }
    ~MenuBarExtraTest() override { QApplication::setLayoutDirection(Qt::LeftToRight); }

    AppState& state() { return *desktop_.state; }

    std::vector<std::string> titles() const
    {
        std::vector<std::string> result;
        for (const StatusMenuRow& row : item_.rows)
            result.push_back(row.title);
        return result;
    }
    std::string caption() const { return item_.rows.front().caption; }

    /// A click on the bar at the top, where the system leaves the menu to us.
    MenuBarMenu& openMenu(double x = 300)
    {
        item_.description->openMenu({x, desktop_.screens->main->frame.maxY() - 5});
        if (extra_->openMenu() == nullptr)
            throw std::logic_error("The menu has not been opened.");
        if (!QTest::qWaitForWindowExposed(extra_->openMenu(), 60'000))
            throw std::logic_error("The menu does not appear.");
        return *extra_->openMenu();
    }
    static std::vector<std::string> labels(const MenuBarMenu& menu)
    {
        std::vector<std::string> result;
        for (const QLabel* label : menu.findChildren<QLabel*>())
            result.push_back(label->text().toStdString());
        return result;
    }
    static QPoint middleOf(const MenuBarMenu& menu, const QString& title)
    {
        for (QAction* action : menu.actions()) {
            if (action->text() == title)
                return menu.actionGeometry(action).center();
        }
        throw std::logic_error("There is no such row.");
    }
    void click(std::string_view title)
    {
        MenuBarMenu& menu = openMenu();
        QTest::mouseClick(&menu, Qt::LeftButton, {},
                          middleOf(menu, QString::fromUtf8(title.data(), static_cast<int>(title.size()))));
        runMainLoop();
    }

    static constexpr double barHeight = 24;

    PanelDesktop desktop_;
    FakeStatusItem item_;
    std::optional<MenuBarExtra> extra_;
};

TEST_F(MenuBarExtraTest, IsCalledClipboardAndShowsItsSymbol)
{
    EXPECT_EQ(item_.description->title, "Clipboard");
    EXPECT_EQ(item_.description->symbolName, "document.on.clipboard.fill");
    EXPECT_TRUE(item_.description->drawIcon);
}

TEST_F(MenuBarExtraTest, HasNineRows)
{
    EXPECT_THAT(titles(), ElementsAre("Tessel Clipboard", "", "Open History", "Clear history", "Settings",
                                      "Check for Updates...", "About", "", "Quit"));
    EXPECT_EQ(caption(), "Cmd + Shift + V");
}

TEST_F(MenuBarExtraTest, ItsHeaderFollowsThePreset)
{
    state().hotKeyPreset = HotKeyPreset::cmdOptionV;
    runMainLoop();
    EXPECT_EQ(caption(), "Cmd + Option + V");
}

TEST_F(MenuBarExtraTest, NothingElseThatChangesSetsTheRowsAnew)
{
    desktop_.copyAll({"A", "B", "C"});
    state().panelTintOpacity = 0.5;
    state().hotKeyPreset = HotKeyPreset::cmdShiftV;
    runMainLoop();
    EXPECT_EQ(item_.menusSet, 1);
}

TEST_F(MenuBarExtraTest, ARowOpensTheHistory)
{
    item_.choose("Open History");
    runMainLoop();
    EXPECT_TRUE(desktop_.window().isVisible());
}

TEST_F(MenuBarExtraTest, ARowClearsTheHistoryWithItsPinsUnderAnOpenPanel)
{
    desktop_.copyAll({"A", "B", "C"});
    desktop_.pin("B");
    desktop_.openPanel();
    item_.choose("Clear history");
    runMainLoop();
    EXPECT_THAT(*state().history, IsEmpty());
    EXPECT_THAT(*state().pinnedItemIDs, IsEmpty());
    EXPECT_TRUE(desktop_.window().isVisible());
    EXPECT_THAT(desktop_.visibleLabels(), Contains("Clipboard is empty"));
}

TEST_F(MenuBarExtraTest, RowsOpenTheSettingsAndTheAboutWindow)
{
    item_.choose("Settings");
    EXPECT_TRUE(state().settingsController);
    item_.choose("About");
    EXPECT_TRUE(state().aboutController);
}

TEST_F(MenuBarExtraTest, RowsLookForUpdatesAndQuit)
{
    desktop_.log->forget();
    item_.choose("Check for Updates...");
    item_.choose("Quit");
    EXPECT_THAT(desktop_.log->effects(), ElementsAre("updater.checkForUpdates", "application.terminate"));
}

TEST_F(MenuBarExtraTest, RowsOutliveTheState)
{
    desktop_.quit();
    item_.choose("Clear history");
}

TEST_F(MenuBarExtraTest, OurMenuBeginsWhereTheBarEnds)
{
    const MenuBarMenu& menu = openMenu();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(menu.frameGeometry().topLeft(), screen.topLeft() + QPoint(300, static_cast<int>(barHeight)));
}

TEST_F(MenuBarExtraTest, OurMenuStaysOnTheScreen)
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(openMenu(screen.width() - 3).frameGeometry().right(), screen.right());
}

TEST_F(MenuBarExtraTest, OurMenuHasAHeaderOfTwoTexts)
{
    const MenuBarMenu& menu = openMenu();
    EXPECT_THAT(labels(menu), ElementsAre("Tessel Clipboard", "Cmd + Shift + V"));
    const auto texts = menu.findChildren<QLabel*>();
    EXPECT_EQ(texts[0]->mapTo(&menu, QPoint()).x(), texts[1]->mapTo(&menu, QPoint()).x());
    EXPECT_EQ(texts[1]->y(), texts[0]->geometry().bottom() + 1 + 2);
}

TEST_F(MenuBarExtraTest, TheHeaderOfAnOpenMenuFollowsThePreset)
{
    const MenuBarMenu& menu = openMenu();
    state().hotKeyPreset = HotKeyPreset::ctrlShiftV;
    runMainLoop();
    EXPECT_THAT(labels(menu), ElementsAre("Tessel Clipboard", "Ctrl + Shift + V"));
}

TEST_F(MenuBarExtraTest, AClickOnARowOfOurMenuDoesItsJobOnceTheMenuHasClosed)
{
    desktop_.copyAll({"A"});
    MenuBarMenu& menu = openMenu();
    QTest::mouseClick(&menu, Qt::LeftButton, {}, middleOf(menu, "Clear history"));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_THAT(desktop_.texts(), ElementsAre("A"));
    runMainLoop();
    EXPECT_THAT(desktop_.texts(), IsEmpty());
    EXPECT_EQ(extra_->openMenu(), nullptr);
}

TEST_F(MenuBarExtraTest, EachRowOfOurMenuDoesItsOwnJob)
{
    click("Open History");
    EXPECT_TRUE(desktop_.window().isVisible());
    click("Settings");
    EXPECT_TRUE(state().settingsController);
    click("About");
    EXPECT_TRUE(state().aboutController);
    desktop_.log->forget();
    click("Check for Updates...");
    click("Quit");
    EXPECT_THAT(desktop_.log->effects(), ElementsAre("updater.checkForUpdates", "application.terminate"));
}

TEST_F(MenuBarExtraTest, AClickOnTheHeaderDoesNothing)
{
    MenuBarMenu& menu = openMenu();
    QTest::mouseClick(menu.findChildren<QLabel*>().front(), Qt::LeftButton);
    runMainLoop();
    EXPECT_TRUE(menu.isVisible());
}

TEST_F(MenuBarExtraTest, OurMenuIsUsedWithKeys)
{
    desktop_.log->forget();
    MenuBarMenu& menu = openMenu();
    QTest::keyClick(&menu, Qt::Key_Down);
    ASSERT_NE(menu.activeAction(), nullptr);
    EXPECT_EQ(menu.activeAction()->text(), "Open History");
    QTest::keyClick(&menu, Qt::Key_Up);
    EXPECT_EQ(menu.activeAction()->text(), "Quit");
    QTest::keyClick(&menu, Qt::Key_Return);
    runMainLoop();
    EXPECT_THAT(desktop_.log->effects(), ElementsAre("application.terminate"));
}

TEST_F(MenuBarExtraTest, EscapeClosesOurMenuAndLeavesThePanel)
{
    desktop_.openPanel();
    MenuBarMenu& menu = openMenu();
    QTest::keyClick(&menu, Qt::Key_Escape);
    runMainLoop();
    EXPECT_EQ(extra_->openMenu(), nullptr);
    EXPECT_TRUE(desktop_.window().isVisible());
}

TEST_F(MenuBarExtraTest, AClickOnTheBarThatOurMenuDoesNotSeeClosesIt)
{
    openMenu();
    item_.description->openMenu({300, 100});
    runMainLoop();
    EXPECT_EQ(extra_->openMenu(), nullptr);
    openMenu();
}

TEST_F(MenuBarExtraTest, AnotherLookClosesOurMenu)
{
    openMenu();
    AppearanceSettings dark;
    dark.colorScheme = ColorScheme::dark;
    desktop_.appearance.change(dark);
    runMainLoop();
    EXPECT_EQ(extra_->openMenu(), nullptr);
}

TEST_F(MenuBarExtraTest, AssistiveProgramsReadTheRows)
{
    const QAccessibleInterface* menu = QAccessible::queryAccessibleInterface(&openMenu());
    EXPECT_EQ(menu->text(QAccessible::Name), "Clipboard");
    std::vector<std::string> names;
    for (int index = 0; index < menu->childCount(); ++index)
        names.push_back(menu->child(index)->text(QAccessible::Name).toStdString());
    EXPECT_THAT(names, ElementsAre("Tessel Clipboard, Cmd + Shift + V", "", "Open History", "Clear history",
                                   "Settings", "Check for Updates...", "About", "", "Quit"));
}

TEST_F(MenuBarExtraTest, OurMenuGoesWithTheExtra)
{
    openMenu();
    extra_.reset();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(MenuBarExtraTest, AClickThatComesAfterItsEndOpensNothing)
{
    extra_.reset();
    item_.description->openMenu({300, 100});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

} // namespace

} // namespace tessel::test
