// The panel as assistive programs see it: a real client reads it over a real accessibility bus, while real
// keys are pressed.

#include <signal.h>

#include <algorithm>

#include "AccessibilityBus.h"
#include "PanelRows.h"
#include "ProgramTest.h"
#include "ScreenReader.h"

namespace tessel::desktop {

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::SizeIs;

/// The nodes of one role, in order.
ScreenReader::Tree nodesOf(const ScreenReader::Tree& tree, const std::string& role)
{
    ScreenReader::Tree nodes;
    std::copy_if(tree.begin(), tree.end(), std::back_inserter(nodes),
                 [&](const AccessibleNode& node) { return node.role == role; });
    return nodes;
}

std::vector<std::string> namesOf(const ScreenReader::Tree& tree, const std::string& role)
{
    std::vector<std::string> names;
    for (const auto& node : nodesOf(tree, role))
        names.push_back(node.name);
    return names;
}

/// The names of the rows that have a state.
std::vector<std::string> rowsThatAre(const ScreenReader::Tree& tree, const std::string& state)
{
    std::vector<std::string> names;
    for (const auto& node : nodesOf(tree, "list item")) {
        if (node.is(state))
            names.push_back(node.name);
    }
    return names;
}

std::string onlyPathOf(const ScreenReader::Tree& tree, const std::string& role, const std::string& name)
{
    for (const auto& node : nodesOf(tree, role)) {
        if (node.name == name)
            return node.path;
    }
    throw DesktopFailure("there is no " + role + " \"" + name + "\"");
}

class AccessibilityTest : public ProgramTest {
protected:
    /// While somebody listens, the toolkit (6.4) loses the release of each key that closes a window: a few
    /// bytes.
    AccessibilityTest()
        : ProgramTest({.leakCheck = LeakCheck::off})
    {}

    void SetUp() override
    {
        bus_.emplace(desktop_, AccessibilityBus::Status::enabled);
        ProgramTest::SetUp();
    }

    /// Copies texts, opens the panel, and listens to it.
    void openWith(const std::vector<std::string>& texts)
    {
        copyTexts(texts);
        program_->openPanel();
        listen();
    }
    /// Returns when the reader has found the panel, a row of which has the focus, and hears what changes.
    void listen()
    {
        reader_.emplace(desktop_, program_->process().pid());
        const auto tree = waitForTree("a row that has the focus", [](const ScreenReader::Tree& nodes) {
            return !rowsThatAre(nodes, "focused").empty();
        });
        const auto focused = rowsThatAre(tree, "focused").front();
        const auto path = onlyPathOf(tree, "list item", focused);
        desktop_.connection().waitUntil("the screen reader to hear the program", [&] {
            reader_->act(path, "SetFocus");
            return reader_->hasHeard("object:state-changed:focused");
        });
        reader_->waitForFocus(focused);
    }

    ScreenReader::Tree waitForTree(const std::string& awaited,
                                   const std::function<bool(const ScreenReader::Tree&)>& condition)
    {
        return reader_->waitForTree(awaited, condition);
    }
    ScreenReader::Tree waitForRows(const std::vector<std::string>& names)
    {
        return waitForTree(std::to_string(names.size()) + " rows", [&](const ScreenReader::Tree& tree) {
            return namesOf(tree, "list item") == names;
        });
    }

    void tap(KeySymbol key) { desktop_.keyboard().tap(key); }
    void tapWithControl(KeySymbol key) { desktop_.keyboard().chord({XKB_KEY_Control_L}, key); }

    std::optional<AccessibilityBus> bus_;
    std::optional<ScreenReader> reader_;
};

TEST_F(AccessibilityTest, ThePanelIsAWindowWithAHeadingTheCountTwoButtonsAndAList)
{
    openWith({"A", "B"});
    std::vector<std::string> nodes;
    for (const auto& node : reader_->read())
        nodes.push_back(node.path + " " + node.role + " " + node.name);
    EXPECT_THAT(nodes,
                ElementsAre(" application tessel-clipboard", "/0 frame Clipboard", "/0/0 heading Clipboard",
                            "/0/1 label 2 items", "/0/2 push button Close", "/0/3 push button Clear all",
                            "/0/4 list Clipboard history", "/0/4/0 list item B", "/0/4/1 list item A"));
    program_->closePanel();
}

TEST_F(AccessibilityTest, EntriesTellTitleKindPinnedStateAndTime)
{
    copyTexts({"one\ntwo"});
    program_->openPanel();
    copies_->copyPng(encodePng(makeTestPicture(8, 8, 1)));
    listen();
    auto rows = nodesOf(waitForRows({"Image", "one two"}), "list item");
    EXPECT_THAT(rows[0].description, MatchesRegex("Image, [0-9]+:[0-9][0-9]"));
    EXPECT_THAT(rows[1].description, MatchesRegex("Text, [0-9]+:[0-9][0-9]"));
    for (const auto& row : rows) {
        EXPECT_THAT(row.states, AllOf(Contains("selectable"), Contains("focusable"), Contains("showing"),
                                      Contains("visible"), Contains("enabled")));
        EXPECT_THAT(row.actions, ElementsAre("Press", "SetFocus", "ShowMenu"));
    }
    // The text was selected when the image came.
    EXPECT_THAT(rows[0].states, AllOf(Not(Contains("selected")), Not(Contains("focused"))));
    EXPECT_THAT(rows[1].states, AllOf(Contains("selected"), Contains("focused")));
    program_->closePanel();
}

TEST_F(AccessibilityTest, EveryMoveOfTheSelectionIsHeard)
{
    openWith({"A", "B", "C"});
    tap(XKB_KEY_Down);
    auto heard = reader_->waitForFocus("B");
    EXPECT_EQ(heard.role, "list item");
    EXPECT_THAT(heard.description, MatchesRegex("Text, [0-9]+:[0-9][0-9]"));
    EXPECT_THAT(rowsThatAre(reader_->read(), "selected"), ElementsAre("B"));

    tap(XKB_KEY_Down);
    EXPECT_EQ(reader_->waitForEvent("object:state-changed:selected", "B", 0).role, "list item");
    EXPECT_EQ(reader_->waitForEvent("object:state-changed:selected", "A", 1).role, "list item");
    reader_->waitForFocus("A");
    tap(XKB_KEY_Up);
    reader_->waitForFocus("B");

    desktop_.pointer().moveTo(PanelRows(desktop_, *program_).placeOf(0));
    desktop_.pointer().click(PointerButton::left);
    reader_->waitForFocus("C");
    program_->closePanel();
}

TEST_F(AccessibilityTest, TheOpeningIsHeardWithTheSelectedRow)
{
    openWith({"A", "B"});
    tap(XKB_KEY_Down);
    reader_->waitForFocus("A");
    program_->closePanel();
    program_->openPanel();
    EXPECT_EQ(reader_->waitForFocus("B").role, "list item");
    program_->closePanel();
}

TEST_F(AccessibilityTest, PinningIsHeardAndRead)
{
    openWith({"A", "B"});
    tap(XKB_KEY_Down);
    reader_->waitForFocus("A");
    tapWithControl(XKB_KEY_p);
    const auto heard = reader_->waitForEvent("object:property-change:accessible-description", "A");
    EXPECT_THAT(heard.description, MatchesRegex("Text, pinned, [0-9]+:[0-9][0-9]"));
    const auto rows = nodesOf(waitForRows({"A", "B"}), "list item");
    EXPECT_THAT(rows[0].description, MatchesRegex("Text, pinned, [0-9]+:[0-9][0-9]"));
    EXPECT_THAT(rows[1].description, MatchesRegex("Text, [0-9]+:[0-9][0-9]"));
    EXPECT_TRUE(rows[0].is("focused"));

    tapWithControl(XKB_KEY_p);
    EXPECT_THAT(nodesOf(waitForRows({"B", "A"}), "list item")[1].description,
                MatchesRegex("Text, [0-9]+:[0-9][0-9]"));
    program_->closePanel();
}

TEST_F(AccessibilityTest, DeletionsAndCopiesAreHeardAndRead)
{
    openWith({"A", "B"});
    tapWithControl(XKB_KEY_BackSpace);
    reader_->waitForEvent("object:children-changed:remove", "Clipboard history");
    reader_->waitForFocus("A");
    auto tree = waitForRows({"A"});
    EXPECT_THAT(namesOf(tree, "label"), ElementsAre("1 items"));

    copies_.emplace(desktop_, *program_, 1);
    copies_->copyText("C");
    EXPECT_EQ(reader_->waitForEvent("object:property-change:accessible-name", "2 items").role, "label");
    reader_->waitForEvent("object:children-changed:add", "Clipboard history");
    tree = waitForRows({"C", "A"});
    EXPECT_THAT(rowsThatAre(tree, "selected"), ElementsAre("A"));
    program_->closePanel();
}

TEST_F(AccessibilityTest, TheMessagesOfAnEmptyHistoryAreRead)
{
    openWith({"A"});
    const auto clearAll = onlyPathOf(reader_->read(), "push button", "Clear all");
    reader_->act(clearAll, "Press");
    const auto heard = reader_->waitForFocus("Clipboard history");
    EXPECT_EQ(heard.description, "Clipboard is empty. Copy something and it will appear here.");
    const auto tree = reader_->read();
    EXPECT_THAT(namesOf(tree, "label"),
                ElementsAre("0 items", "Clipboard is empty", "Copy something and it will appear here."));
    EXPECT_THAT(namesOf(tree, "list item"), IsEmpty());

    copies_.emplace(desktop_, *program_);
    copies_->copyText("B");
    reader_->waitForFocus("B");
    EXPECT_THAT(namesOf(reader_->read(), "label"), ElementsAre("1 items"));
    program_->closePanel();
}

TEST_F(AccessibilityTest, ExtentsAreWhereTheRowsAreToBeSeen)
{
    openWith({"A", "B", "C"});
    const auto panel = program_->panel().find().value();
    const auto rows = PanelRows(desktop_, *program_).waitForCount(3);
    const auto nodes = nodesOf(reader_->read(), "list item");
    ASSERT_THAT(nodes, SizeIs(3));
    constexpr int outline = 2; // What is seen of a row may end within its outline.
    for (std::size_t position = 0; position < nodes.size(); ++position) {
        const auto& extents = nodes[position].extents;
        EXPECT_NEAR(extents.y, panel.frame.y + rows[position].top, outline);
        EXPECT_NEAR(extents.y + extents.height, panel.frame.y + rows[position].bottom, outline);
        EXPECT_EQ(extents.x, panel.frame.x + 8);
        EXPECT_EQ(extents.width, Panel::width - 16);
    }
    program_->closePanel();
}

TEST_F(AccessibilityTest, RowsOutOfViewAreNotShowing)
{
    std::vector<std::string> texts;
    for (int number = 1; number <= 12; ++number)
        texts.push_back("text " + std::to_string(number));
    openWith(texts);
    auto rows = nodesOf(reader_->read(), "list item");
    ASSERT_THAT(rows, SizeIs(12));
    EXPECT_TRUE(rows.front().is("showing"));
    EXPECT_FALSE(rows.back().is("showing"));

    reader_->act(rows.back().path, "SetFocus");
    reader_->waitForFocus("text 1");
    rows = nodesOf(reader_->read(), "list item");
    EXPECT_TRUE(rows.back().is("showing"));
    EXPECT_FALSE(rows.front().is("showing"));
    program_->closePanel();
}

TEST_F(AccessibilityTest, TheDefaultActionOfARowPastesIt)
{
    openWith({"A", "B"});
    SelectionWatch clipboard(desktop_.displayName());
    reader_->act(onlyPathOf(reader_->read(), "list item", "A"), "Press");
    program_->panel().waitUntilClosed();
    clipboard.waitForMoreThan(0);
    EXPECT_EQ(ClipboardReader(desktop_.displayName()).readText(), "A");
}

TEST_F(AccessibilityTest, TheCloseButtonCloses)
{
    openWith({"A"});
    reader_->act(onlyPathOf(reader_->read(), "push button", "Close"), "Press");
    program_->panel().waitUntilClosed();
}

/// The keys that open the context menu.
class AccessibleMenuTest : public AccessibilityTest, public testing::WithParamInterface<const char*> {
protected:
    void pressMenuKeys()
    {
        if (std::string(GetParam()) == "MenuKey")
            tap(XKB_KEY_Menu);
        else
            desktop_.keyboard().chord({XKB_KEY_Shift_L}, XKB_KEY_F10);
    }
};

INSTANTIATE_TEST_SUITE_P(Keys, AccessibleMenuTest, testing::Values("MenuKey", "ShiftF10"),
                         [](const auto& keys) { return std::string(keys.param); });

TEST_P(AccessibleMenuTest, OpensForTheSelectedRowAndTakesTheKeys)
{
    openWith({"A", "B"});
    tap(XKB_KEY_Down);
    reader_->waitForFocus("A");
    pressMenuKeys();
    EXPECT_EQ(reader_->waitForFocus("Copy").role, "menu item");
    tap(XKB_KEY_Down);
    reader_->waitForFocus("Pin");
    tap(XKB_KEY_Down);
    reader_->waitForFocus("Delete");
    tap(XKB_KEY_Return);
    reader_->waitForFocus("B");
    waitForRows({"B"});
    program_->closePanel();
}

TEST_P(AccessibleMenuTest, EscapeClosesItAloneAndTheRowHasTheFocusAgain)
{
    openWith({"A", "B"});
    tap(XKB_KEY_Down);
    reader_->waitForFocus("A");
    pressMenuKeys();
    reader_->waitForFocus("Copy");
    tap(XKB_KEY_Escape);
    EXPECT_EQ(reader_->waitForFocus("A").role, "list item");
    EXPECT_TRUE(program_->panel().isOpen());
    tap(XKB_KEY_Up);
    reader_->waitForFocus("B");
    program_->closePanel();
}

/// While somebody listens, the toolkit asks the accessibility bus about every key before it obeys it.
TEST_F(AccessibilityTest, KeysPasteOnceWhileSomebodyListens)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    openWith({"A", "B"});
    program_->closePanel();
    choose(1);
    expectPastedOnce(editor, "A");
}

TEST_F(AccessibilityTest, AnAssistiveProgramThatHangsHoldsNothingUp)
{
    openWith({"A", "B"});
    reader_->process().signal(SIGSTOP);
    SelectionWatch clipboard(desktop_.displayName());
    tap(XKB_KEY_Down);
    tap(XKB_KEY_Return);
    program_->panel().waitUntilClosed();
    clipboard.waitForMoreThan(0);
    EXPECT_EQ(ClipboardReader(desktop_.displayName()).readText(), "A");
    copyTexts({"C"});
    reader_->process().signal(SIGCONT);
    program_->openPanel();
    waitForRows({"C", "B", "A"});
    program_->closePanel();
}

/// The program is older than the accessibility bus.
class LateAccessibilityTest : public AccessibilityTest {
protected:
    void SetUp() override { ProgramTest::SetUp(); }

    /// The entry "A" is the second one.
    void expectToBeHeardOnceEnabled()
    {
        bus_->setStatus(AccessibilityBus::Status::enabled);
        program_->openPanel();
        listen();
        tap(XKB_KEY_Down);
        reader_->waitForFocus("A");
        program_->closePanel();
    }
};

TEST_F(LateAccessibilityTest, ABusThatAppearsIsUsed)
{
    bus_.emplace(desktop_, AccessibilityBus::Status::enabled);
    openWith({"A", "B"});
    tap(XKB_KEY_Down);
    reader_->waitForFocus("A");
    program_->closePanel();
}

TEST_F(LateAccessibilityTest, ABusThatAppearsAndIsEnabledLaterIsUsedFromThen)
{
    bus_.emplace(desktop_, AccessibilityBus::Status::disabled);
    copyTexts({"A", "B"});
    expectToBeHeardOnceEnabled();
}

TEST_F(LateAccessibilityTest, ABusThatIsEnabledLaterIsUsedFromThen)
{
    bus_.emplace(desktop_, AccessibilityBus::Status::disabled);
    restartProgram();
    copyTexts({"A", "B"});
    expectToBeHeardOnceEnabled();
}

} // namespace

} // namespace tessel::desktop
