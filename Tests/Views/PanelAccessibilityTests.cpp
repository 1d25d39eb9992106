// The panel's tree, states and announcements for assistive programs, as the toolkit hands them on.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include <QtGui/QAccessible>
#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformaccessibility.h>
#include <QtGui/qpa/qplatformintegration.h>
#include <QtTest/QTest>

#include "Panel/RowContextMenu.h"
#include "Panel/RowText.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

/// True: the platform believes that there are assistive programs.
void setAssistiveProgramsPresent(bool present)
{
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(present);
}

std::string word(QAccessible::Role role)
{
    switch (role) {
    case QAccessible::Window:
        return "window";
    case QAccessible::Heading:
        return "heading";
    case QAccessible::StaticText:
        return "label";
    case QAccessible::Button:
        return "button";
    case QAccessible::List:
        return "list";
    case QAccessible::ListItem:
        return "item";
    case QAccessible::MenuItem:
        return "menu item";
    default:
        return "role " + std::to_string(role);
    }
}

std::string name(const QAccessibleInterface& node)
{
    return node.text(QAccessible::Name).toStdString();
}

std::string description(const QAccessibleInterface& node)
{
    return node.text(QAccessible::Description).toStdString();
}

std::string signature(const QAccessibleInterface& node)
{
    return word(node.role()) + " " + name(node);
}

/// The events of these types, each with who it is about.
std::string announcement(QAccessibleEvent& event)
{
    const QAccessibleInterface* node = event.accessibleInterface();
    if (node == nullptr)
        return {};
    switch (event.type()) {
    case QAccessible::Focus:
        return "focus: " + signature(*node);
    case QAccessible::SelectionAdd:
        return "selected: " + signature(*node);
    case QAccessible::SelectionRemove:
        return "not selected: " + signature(*node);
    case QAccessible::ObjectCreated:
        return "came: " + signature(*node);
    case QAccessible::ObjectDestroyed:
        return "went: " + signature(*node);
    case QAccessible::NameChanged:
        return "named: " + signature(*node);
    case QAccessible::DescriptionChanged:
        return "described: " + description(*node);
    default:
        return {};
    }
}

/// A panel on a desktop with an assistive program, which hears everything.
class PanelAccessibility : public testing::Test {
protected:
    PanelAccessibility()
    {
        setAssistiveProgramsPresent(true);
        heard().clear();
        QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
            follow(*event);
            if (const auto text = announcement(*event); !text.empty())
                heard().push_back(text);
        });
    }
    ~PanelAccessibility() override
    {
        QAccessible::installUpdateHandler(nullptr);
        setAssistiveProgramsPresent(false);
    }

    /// What has been announced since the last call.
    static std::vector<std::string> takeHeard() { return std::exchange(heard(), {}); }

    void openWith(const std::vector<std::string>& texts)
    {
        desktop_.copyAll(texts);
        desktop_.openPanel();
        ASSERT_TRUE(waitUntil([this] { return desktop_.view().keyCapture().hasFocus(); }));
        runMainLoop();
        takeHeard();
    }

    QAccessibleInterface& window() const
    {
        return *QAccessible::queryAccessibleInterface(&desktop_.window());
    }
    QAccessibleInterface& list() const
    {
        return *QAccessible::queryAccessibleInterface(&desktop_.view().keyCapture());
    }
    QAccessibleInterface& row(int position) const { return *list().child(position); }

    std::vector<std::string> rowNames() const
    {
        std::vector<std::string> names;
        for (int position = 0; position < list().childCount(); ++position)
            names.push_back(name(row(position)));
        return names;
    }

    /// The signatures of a node's descendants, each indented by its depth. Every way down has to lead back
    /// up.
    std::vector<std::string> tree(QAccessibleInterface& node, int depth = 1) const
    {
        std::vector<std::string> lines;
        for (int position = 0; position < node.childCount(); ++position) {
            QAccessibleInterface* child = node.child(position);
            EXPECT_TRUE(child->isValid());
            EXPECT_EQ(child->parent(), &node) << signature(*child);
            EXPECT_EQ(node.indexOfChild(child), position) << signature(*child);
            lines.push_back(std::string(static_cast<std::size_t>(depth), ' ') + signature(*child));
            const auto below = tree(*child, depth + 1);
            lines.insert(lines.end(), below.begin(), below.end());
        }
        return lines;
    }

    void act(QAccessibleInterface& node, const QString& action)
    {
        node.actionInterface()->doAction(action);
        runMainLoop();
    }

    PanelDesktop desktop_;

    /// The identities of the rows as they are.
    std::vector<QAccessible::Id> rowIDs() const
    {
        std::vector<QAccessible::Id> ids;
        const int count = desktop_.list().items().empty() ? 0 : list().childCount();
        for (int position = 0; position < count; ++position)
            ids.push_back(QAccessible::uniqueId(&row(position)));
        return ids;
    }
    /// The same as somebody has them who only hears of changes from now on.
    void followRows() { followedRows() = rowIDs(); }
    static std::vector<QAccessible::Id>& followedRows()
    {
        static std::vector<QAccessible::Id> ids;
        return ids;
    }

private:
    static void follow(QAccessibleEvent& event)
    {
        auto& ids = followedRows();
        if (event.type() == QAccessible::ObjectDestroyed)
            std::erase(ids, event.uniqueId());
        QAccessibleInterface* node = event.accessibleInterface();
        if (event.type() != QAccessible::ObjectCreated || node->role() != QAccessible::ListItem)
            return;
        const auto position =
            std::min<std::size_t>(ids.size(), static_cast<std::size_t>(node->parent()->indexOfChild(node)));
        ids.insert(ids.begin() + static_cast<std::ptrdiff_t>(position), event.uniqueId());
    }

    static std::vector<std::string>& heard()
    {
        static std::vector<std::string> announcements;
        return announcements;
    }
};

// The tree

TEST_F(PanelAccessibility, IsAWindowWithAHeadingTheCountTwoButtonsAndTheList)
{
    openWith({"A", "B"});
    EXPECT_EQ(signature(window()), "window Clipboard");
    EXPECT_THAT(tree(window()),
                ElementsAre(" heading Clipboard", " label 2 items", " button Close", " button Clear all",
                            " list Clipboard history", "  item B", "  item A"));
}

TEST_F(PanelAccessibility, HasTheMessagesInItsListWhereThereIsNoHistory)
{
    openWith({});
    EXPECT_THAT(tree(window()),
                ElementsAre(" heading Clipboard", " label 0 items", " button Close", " button Clear all",
                            " list Clipboard history", "  label Clipboard is empty",
                            "  label Copy something and it will appear here."));
    EXPECT_EQ(description(list()), "Clipboard is empty. Copy something and it will appear here.");
    EXPECT_TRUE(list().state().focused);
    EXPECT_EQ(list().focusChild(), &list());
}

TEST_F(PanelAccessibility, FollowsTheHistoryFromEmptyToFullAndBack)
{
    openWith({});
    desktop_.copy("A");
    runMainLoop();
    EXPECT_THAT(tree(list()), ElementsAre(" item A"));
    EXPECT_EQ(description(list()), "");
    desktop_.view().clearAll();
    runMainLoop();
    EXPECT_THAT(tree(list()),
                ElementsAre(" label Clipboard is empty", " label Copy something and it will appear here."));
}

TEST_F(PanelAccessibility, ListsThePinnedEntriesFirst)
{
    openWith({"A", "B", "C"});
    desktop_.pin("B");
    runMainLoop();
    EXPECT_THAT(rowNames(), ElementsAre("B", "C", "A"));
}

// The rows

TEST_F(PanelAccessibility, ARowTellsTitleKindPinnedStateAndTime)
{
    openWith({"one\ntwo\tthree"});
    EXPECT_EQ(name(row(0)), "one two three");
    EXPECT_THAT(description(row(0)), MatchesRegex("Text, [0-9]+:[0-9][0-9]"));
    desktop_.press(Qt::Key_P, Qt::ControlModifier);
    runMainLoop();
    EXPECT_THAT(description(row(0)), MatchesRegex("Text, pinned, [0-9]+:[0-9][0-9]"));
}

TEST_F(PanelAccessibility, ALongTextIsToldInABoundedPrefix)
{
    openWith({std::string(10'000'000, 'x')});
    EXPECT_EQ(name(row(0)), std::string(rowTitleLimit, 'x'));
}

TEST_F(PanelAccessibility, OnlyTheSelectedRowIsSelectedAndHasTheFocus)
{
    openWith({"A", "B"});
    EXPECT_TRUE(row(0).state().selected);
    EXPECT_TRUE(row(0).state().focused);
    EXPECT_FALSE(row(1).state().selected);
    EXPECT_FALSE(row(1).state().focused);
    for (const int position : {0, 1}) {
        EXPECT_TRUE(row(position).state().selectable);
        EXPECT_TRUE(row(position).state().focusable);
        EXPECT_FALSE(row(position).state().offscreen);
        EXPECT_FALSE(row(position).state().invisible);
    }
    EXPECT_TRUE(list().state().focused);
    EXPECT_EQ(list().focusChild(), &row(0));
    EXPECT_EQ(window().focusChild(), &row(0));
}

TEST_F(PanelAccessibility, ARowIsWhereItIsDrawn)
{
    openWith({"A", "B"});
    const QRect drawn = desktop_.list().rowRectangle(desktop_.item("A").id).value();
    EXPECT_EQ(row(1).rect(), drawn.translated(desktop_.list().mapToGlobal(QPoint())));
    const QPoint centre = row(1).rect().center();
    EXPECT_EQ(list().childAt(centre.x(), centre.y()), &row(1));
    EXPECT_EQ(list().childAt(row(1).rect().left(), row(1).rect().top() - 2), nullptr) << "Between two rows";
}

TEST_F(PanelAccessibility, RowsOutOfViewAreOffscreen)
{
    std::vector<std::string> texts(20);
    for (std::size_t number = 0; number < texts.size(); ++number)
        texts[number] = "text " + std::to_string(number);
    openWith(texts);
    EXPECT_TRUE(row(19).state().offscreen);
    const QPoint centre = row(19).rect().center();
    EXPECT_EQ(list().childAt(centre.x(), centre.y()), nullptr);
    act(row(19), QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(desktop_.selectedText(), "text 0");
    EXPECT_FALSE(row(19).state().offscreen);
    EXPECT_TRUE(row(0).state().offscreen);
}

TEST_F(PanelAccessibility, ARowStaysTheSameWhileItsEntryIsThere)
{
    openWith({"A", "B"});
    QAccessibleInterface* rowOfA = &row(1);
    const QAccessible::Id idOfA = QAccessible::uniqueId(rowOfA);
    const QAccessible::Id idOfB = QAccessible::uniqueId(&row(0));
    desktop_.copy("C");
    desktop_.pin("A");
    runMainLoop();
    EXPECT_EQ(&row(0), rowOfA);

    desktop_.state->removeItem(desktop_.item("B"));
    runMainLoop();
    EXPECT_EQ(QAccessible::accessibleInterface(idOfB), nullptr);
    EXPECT_EQ(QAccessible::accessibleInterface(idOfA), rowOfA);
}

TEST_F(PanelAccessibility, RowsGoWithThePanel)
{
    openWith({"A"});
    const QAccessible::Id id = QAccessible::uniqueId(&row(0));
    desktop_.view().closePanel();
    runMainLoop();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

// The actions

TEST_F(PanelAccessibility, TheDefaultActionOfARowPastesIt)
{
    openWith({"A", "B"});
    EXPECT_EQ(row(1).actionInterface()->actionNames().constFirst(),
              QAccessibleActionInterface::pressAction());
    act(row(1), QAccessibleActionInterface::pressAction());
    EXPECT_EQ(*desktop_.pasteboard->string(), "A");
    EXPECT_EQ(desktop_.state->panelController, nullptr);
}

TEST_F(PanelAccessibility, ARowThatIsAskedToTakeTheFocusSaysThatItHasIt)
{
    openWith({"A", "B"});
    act(row(1), QAccessibleActionInterface::setFocusAction());
    EXPECT_THAT(takeHeard(), ElementsAre("not selected: item B", "selected: item A", "focus: item A"));
    act(row(1), QAccessibleActionInterface::setFocusAction());
    EXPECT_THAT(takeHeard(), ElementsAre("focus: item A"));
}

TEST_F(PanelAccessibility, ARowShowsItsMenuAndSaysSo)
{
    openWith({"A", "B"});
    act(row(1), QAccessibleActionInterface::showMenuAction());
    ASSERT_NE(desktop_.view().contextMenu(), nullptr);
    EXPECT_EQ(desktop_.selectedText(), "A");
    EXPECT_THAT(takeHeard(), ElementsAre("not selected: item B", "selected: item A", "focus: item A",
                                         "focus: menu item Copy"));
    EXPECT_FALSE(row(1).state().focused) << "The menu has the keys.";
    EXPECT_FALSE(list().state().focused);
    EXPECT_EQ(list().focusChild(), nullptr);

    desktop_.view().contextMenu()->close();
    runMainLoop();
    EXPECT_THAT(takeHeard(), ElementsAre("focus: item A"));
    EXPECT_TRUE(row(1).state().focused);
}

TEST_F(PanelAccessibility, ButtonsCanBePressed)
{
    openWith({"A"});
    act(*window().child(3), QAccessibleActionInterface::pressAction());
    EXPECT_THAT(rowNames(), ElementsAre("Clipboard is empty", "Copy something and it will appear here."));
    act(*window().child(2), QAccessibleActionInterface::pressAction());
    EXPECT_EQ(desktop_.state->panelController, nullptr);
}

// The announcements

TEST_F(PanelAccessibility, TheRowIsAnnouncedAfterTheListWhenThePanelOpens)
{
    desktop_.copyAll({"A", "B"});
    desktop_.openPanel();
    ASSERT_TRUE(waitUntil([this] { return desktop_.view().keyCapture().hasFocus(); }));
    runMainLoop();
    const auto heard = takeHeard();
    ASSERT_THAT(heard, Not(IsEmpty()));
    EXPECT_EQ(heard.back(), "focus: item B");
    EXPECT_EQ(std::count(heard.begin(), heard.end(), "focus: item B"), 1);
    EXPECT_THAT(heard, Each(Not(StartsWith("came"))));
}

TEST_F(PanelAccessibility, EveryMoveIsAnnounced)
{
    openWith({"A", "B"});
    desktop_.press(Qt::Key_Down);
    EXPECT_THAT(takeHeard(), ElementsAre("not selected: item B", "selected: item A", "focus: item A"));
    desktop_.press(Qt::Key_Down);
    EXPECT_THAT(takeHeard(), IsEmpty()) << "It was the last one.";
    desktop_.click("B");
    EXPECT_THAT(takeHeard(), ElementsAre("not selected: item A", "selected: item B", "focus: item B"));
    desktop_.click("B");
    EXPECT_THAT(takeHeard(), IsEmpty());
}

TEST_F(PanelAccessibility, ADeletionIsAnnouncedAndThenTheNextSelection)
{
    openWith({"A", "B", "C"});
    desktop_.press(Qt::Key_Delete, Qt::ControlModifier);
    runMainLoop();
    EXPECT_THAT(takeHeard(),
                ElementsAre("named: label 2 items", "went: item ", "selected: item B", "focus: item B"));
}

TEST_F(PanelAccessibility, ACopyIsAnnounced)
{
    openWith({"A"});
    desktop_.copy("B");
    runMainLoop();
    EXPECT_THAT(takeHeard(), ElementsAre("named: label 2 items", "came: item B"));
}

TEST_F(PanelAccessibility, PinningIsAnnouncedWithOneMove)
{
    openWith({"A", "B", "C"});
    desktop_.press(Qt::Key_Down);
    desktop_.press(Qt::Key_Down);
    takeHeard();
    desktop_.press(Qt::Key_P, Qt::ControlModifier);
    runMainLoop();
    const std::string pinned = "described: " + description(row(0));
    EXPECT_THAT(takeHeard(), ElementsAre(pinned, "went: item A", "came: item A", "focus: item A"));

    desktop_.press(Qt::Key_P, Qt::ControlModifier);
    runMainLoop();
    const std::string unpinned = "described: " + description(row(2));
    EXPECT_THAT(takeHeard(), ElementsAre(unpinned, "went: item A", "came: item A", "focus: item A"));
    EXPECT_NE(pinned, unpinned);
}

TEST_F(PanelAccessibility, PinningIsAnnouncedAtTheSamePlaceToo)
{
    openWith({"A"});
    desktop_.press(Qt::Key_P, Qt::ControlModifier);
    runMainLoop();
    EXPECT_THAT(takeHeard(), ElementsAre("described: " + description(row(0)), "went: item A", "came: item A",
                                         "focus: item A"));
}

TEST_F(PanelAccessibility, ARowThatAnotherOnePassesIsNotAnnounced)
{
    openWith({"A", "B"});
    desktop_.pin("A");
    runMainLoop();
    EXPECT_THAT(takeHeard(),
                ElementsAre("described: " + description(row(0)), "went: item A", "came: item A"));
}

/// Does something to the history that its user might do.
void changeSomething(PanelDesktop& desktop, std::mt19937& random, int number)
{
    const History ordered = desktop.state->orderedHistory();
    const auto kind = random() % 4;
    if (ordered.empty() || kind == 0)
        return desktop.copy("text " + std::to_string(number));
    const ClipboardItem& item = ordered[random() % ordered.size()];
    if (kind == 1)
        desktop.state->removeItem(item);
    else
        desktop.state->togglePinned(item);
}

TEST_F(PanelAccessibility, WhatIsAnnouncedLeadsFromEachListToTheNext)
{
    openWith({"A", "B", "C", "D", "E"});
    desktop_.copy("F");
    runMainLoop();
    followRows();
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const auto changes = 1 + random() % 4;
        for (std::uint32_t change = 0; change < changes; ++change)
            changeSomething(desktop_, random, round);
        runMainLoop();
        ASSERT_EQ(followedRows(), rowIDs()) << "round " << round;
    }
}

TEST_F(PanelAccessibility, AnyOtherOrderIsAnnounced)
{
    openWith({"A", "B", "C", "D"});
    followRows();
    History history = *desktop_.state->history;
    std::reverse(history.begin(), history.end());
    desktop_.state->history = history;
    runMainLoop();
    EXPECT_THAT(rowNames(), ElementsAre("A", "B", "C", "D"));
    EXPECT_EQ(followedRows(), rowIDs());
}

TEST_F(PanelAccessibility, WhatChangesNoRowIsNotAnnounced)
{
    openWith({"A", "B"});
    desktop_.state->panelTintOpacity = 0.5;
    runMainLoop();
    EXPECT_THAT(takeHeard(), IsEmpty());
}

TEST_F(PanelAccessibility, AClearedListIsAnnouncedAsAWhole)
{
    openWith({"A"});
    desktop_.view().clearAll();
    runMainLoop();
    const auto heard = takeHeard();
    ASSERT_THAT(heard, Not(IsEmpty()));
    EXPECT_EQ(heard.front(), "named: label 0 items");
    EXPECT_EQ(heard.back(), "focus: list Clipboard history");
}

TEST_F(PanelAccessibility, WhoReadsAnOpenPanelHearsOfTheNextChange)
{
    setAssistiveProgramsPresent(false);
    openWith({"A", "B"});
    setAssistiveProgramsPresent(true);
    EXPECT_THAT(rowNames(), ElementsAre("B", "A"));
    static_cast<void>(takeHeard());
    desktop_.copy("C");
    runMainLoop();
    EXPECT_THAT(takeHeard(), Contains("came: item C"));
}

TEST_F(PanelAccessibility, AHiddenPanelTellsNothingOfItsEntries)
{
    openWith({"A", "B"});
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&desktop_.view().keyCapture());
    QAccessibleInterface* row = list->child(0);
    ASSERT_EQ(row->text(QAccessible::Name), QStringLiteral("B"));
    desktop_.window().hide();
    EXPECT_EQ(list->childCount(), 0);
    EXPECT_EQ(row->text(QAccessible::Name), QString());
    EXPECT_EQ(row->text(QAccessible::Description), QString());
    desktop_.window().show();
    EXPECT_EQ(list->childCount(), 2);
    EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("B"));
}

TEST_F(PanelAccessibility, NothingIsAnnouncedToNobody)
{
    openWith({"A", "B"});
    setAssistiveProgramsPresent(false);
    desktop_.press(Qt::Key_Down);
    desktop_.copy("C");
    runMainLoop();
    EXPECT_THAT(takeHeard(), IsEmpty());
    // Who comes later hears what changes from then on, and what had changed since the last one left.
    setAssistiveProgramsPresent(true);
    desktop_.press(Qt::Key_Up);
    EXPECT_THAT(takeHeard(), ElementsAre("not selected: item A", "selected: item B", "focus: item B"));
    desktop_.copy("D");
    runMainLoop();
    EXPECT_THAT(takeHeard(), ElementsAre("named: label 4 items", "came: item D", "came: item C"));
}

// The context menu by keys

TEST_F(PanelAccessibility, ShiftF10OpensTheMenuOfTheSelectedRow)
{
    openWith({"A", "B"});
    desktop_.press(Qt::Key_Down);
    takeHeard();
    desktop_.press(Qt::Key_F10);
    EXPECT_EQ(desktop_.view().contextMenu(), nullptr);
    desktop_.press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(desktop_.view().contextMenu(), nullptr);
    EXPECT_THAT(takeHeard(), ElementsAre("focus: menu item Copy"));
    QTest::keyClick(desktop_.view().contextMenu(), Qt::Key_Return);
    EXPECT_EQ(*desktop_.pasteboard->string(), "A");
}

TEST_F(PanelAccessibility, ShiftF10DoesNothingWhereThereIsNoHistory)
{
    openWith({});
    desktop_.press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(desktop_.view().contextMenu(), nullptr);
}

} // namespace

} // namespace tessel::test
