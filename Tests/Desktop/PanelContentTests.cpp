// What the panel shows, and what keys, pointer and menu do in it. What is selected and hovered is seen in its
// picture; which entry that is, by pasting it.

#include <algorithm>

#include "PanelRows.h"
#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

class PanelContentTest : public ProgramTest {
protected:
    void SetUp() override
    {
        ProgramTest::SetUp();
        rows_.emplace(desktop_, *program_);
    }

    void tap(KeySymbol key) { desktop_.keyboard().tap(key); }
    void tapWithControl(KeySymbol key) { desktop_.keyboard().chord({XKB_KEY_Control_L}, key); }

    void clickRow(std::size_t position, PointerButton button = PointerButton::left)
    {
        desktop_.pointer().moveTo(rows_->placeOf(position));
        desktop_.pointer().click(button);
    }

    /// A place in the open panel, in pixels from its top left corner.
    Place placeInPanel(int x, int y)
    {
        const auto panel = program_->panel().find().value();
        return {panel.frame.x + x, panel.frame.y + y};
    }
    Place closeButton() { return placeInPanel(Panel::width - 95, 30); }
    Place clearAllButton() { return placeInPanel(Panel::width - 40, 30); }

    /// The open context menu: the only other window of the program.
    std::optional<WindowFacts> menu()
    {
        const auto process = program_->process().pid();
        const auto panel = program_->panel().find();
        return desktop_.windows().find([&](const WindowFacts& window) {
            return window.isViewable && window.processIdentifier == process && window.frame.width > 1 &&
                   (!panel || window.window != panel->window);
        });
    }
    WindowFacts openMenuOn(std::size_t position)
    {
        clickRow(position, PointerButton::right);
        desktop_.connection().waitUntil("the menu", [this] { return menu().has_value(); });
        return menu().value();
    }
    void waitUntilMenuIsGone()
    {
        desktop_.connection().waitUntil("the menu to be gone", [this] { return !menu(); });
    }

    /// Does something that puts an entry on the clipboard, which has to be that of `text`.
    void expectOnClipboard(const std::string& text, const std::function<void()>& action)
    {
        SelectionWatch clipboard(desktop_.displayName());
        action();
        clipboard.waitForMoreThan(0);
        EXPECT_EQ(ClipboardReader(desktop_.displayName()).readText(), text);
    }
    /// Confirms the selection of the open panel, which has to be the entry of `text`.
    void confirm(const std::string& text, KeySymbol key = XKB_KEY_Return)
    {
        expectOnClipboard(text, [&] {
            tap(key);
            program_->panel().waitUntilClosed();
        });
    }

    static bool isApart(const PanelRow& upper, const PanelRow& lower)
    {
        constexpr int spacing = 20; // Between two rows of one section there is less.
        return lower.top - upper.bottom > spacing;
    }

    std::optional<PanelRows> rows_;
};

TEST_F(PanelContentTest, AnEmptyHistoryHasNoRowsAndItsKeysDoNothing)
{
    const auto panel = program_->openPanel();
    EXPECT_EQ(panel.frame.height, 220);
    for (const auto key : {XKB_KEY_Up, XKB_KEY_Down, XKB_KEY_Return, XKB_KEY_KP_Enter})
        tap(static_cast<KeySymbol>(key));
    for (const auto key : {XKB_KEY_BackSpace, XKB_KEY_Delete, XKB_KEY_p})
        tapWithControl(static_cast<KeySymbol>(key));
    // They have been seen by the time that a later copy is.
    CountedCopies copies(desktop_, *program_);
    copies.copyText("A");
    rows_->waitForSelection(0);
    EXPECT_EQ(program_->panel().find()->window, panel.window) << "It was closed and opened again.";
    program_->closePanel();
}

TEST_F(PanelContentTest, TheOnlyEntryStaysSelected)
{
    copyTexts({"A"});
    program_->openPanel();
    rows_->waitForSelection(0);
    tap(XKB_KEY_Up);
    tap(XKB_KEY_Down);
    confirm("A");
}

TEST_F(PanelContentTest, DownStopsAtTheLastEntryAndUpAtTheFirst)
{
    copyTexts({"A", "B", "C"});
    program_->openPanel();
    rows_->waitForSelection(0);
    for (int press = 0; press < 4; ++press)
        tap(XKB_KEY_Down);
    rows_->waitForSelection(2);
    confirm("A");
    program_->openPanel();
    tap(XKB_KEY_Down);
    rows_->waitForSelection(1);
    for (int press = 0; press < 3; ++press)
        desktop_.keyboard().chord({XKB_KEY_Shift_L}, XKB_KEY_Up); // No modifier but Command counts.
    rows_->waitForSelection(0);
    confirm("C", XKB_KEY_KP_Enter);
}

TEST_F(PanelContentTest, PinnedEntriesComeFirstUnderACaptionOfTheirOwn)
{
    copyTexts({"A", "B", "C"});
    program_->openPanel();
    const auto unpinned = rows_->waitForCount(3);
    EXPECT_FALSE(isApart(unpinned[0], unpinned[1]) || isApart(unpinned[1], unpinned[2]))
        << "There is one caption.";
    tapWithControl(XKB_KEY_p);
    rows_->waitUntil("C under a caption of its own",
                     [](const auto& rows) { return rows.size() == 3 && isApart(rows[0], rows[1]); });
    tap(XKB_KEY_Down);
    tap(XKB_KEY_Down);
    tapWithControl(XKB_KEY_p);
    const auto rows = rows_->waitUntil("C and A under one caption", [](const auto& seen) {
        return seen.size() == 3 && !isApart(seen[0], seen[1]) && isApart(seen[1], seen[2]);
    });
    EXPECT_TRUE(rows[1].isSelected) << "The entry that was pinned stays selected.";
    tap(XKB_KEY_Up);
    tap(XKB_KEY_Down);
    tap(XKB_KEY_Down);
    rows_->waitForSelection(2);
    tapWithControl(XKB_KEY_p);
    rows_->waitUntil("one caption again", [](const auto& seen) {
        return seen.size() == 3 && !isApart(seen[0], seen[1]) && !isApart(seen[1], seen[2]);
    });
    tapWithControl(XKB_KEY_p);
    rows_->waitForSelection(2);
    program_->closePanel();
    for (const auto& [position, text] :
         std::vector<std::pair<int, std::string>>{{0, "C"}, {1, "A"}, {2, "B"}}) {
        program_->openPanel();
        for (int press = 0; press < position; ++press)
            tap(XKB_KEY_Down);
        confirm(text);
    }
}

TEST_F(PanelContentTest, AfterADeletionTheFirstEntryIsSelected)
{
    copyTexts({"A", "B", "C", "D"});
    program_->openPanel();
    tap(XKB_KEY_Down);
    tap(XKB_KEY_Down);
    rows_->waitForSelection(2);
    tapWithControl(XKB_KEY_Delete);
    rows_->waitForCount(3);
    rows_->waitForSelection(0);
    tap(XKB_KEY_Down);
    tap(XKB_KEY_Delete); // Without Command neither key deletes.
    tap(XKB_KEY_BackSpace);
    desktop_.keyboard().chord({XKB_KEY_Super_L}, XKB_KEY_BackSpace);
    rows_->waitForCount(2);
    rows_->waitForSelection(0);
    confirm("D");
    program_->openPanel();
    tap(XKB_KEY_Down);
    confirm("A");
}

TEST_F(PanelContentTest, TheSelectionStaysInViewToBothEndsAndSoDoesTheCaption)
{
    program_->openPanel();
    CountedCopies copies(desktop_, *program_);
    for (int number = 0; number < 9; ++number)
        copies.copyText("entry " + std::to_string(number));
    program_->closePanel();
    program_->openPanel();
    rows_->waitForSelection(0);
    const auto atTheTop = program_->panel().picture();
    for (int press = 0; press < 9; ++press)
        tap(XKB_KEY_Down);
    rows_->waitUntil("the last row selected", [](const auto& rows) {
        return !rows.empty() && rows.back().isSelected && !rows.front().isSelected;
    });
    for (int press = 0; press < 9; ++press)
        tap(XKB_KEY_Up);
    desktop_.connection().waitUntil("the panel to look as at first",
                                    [&] { return program_->panel().picture() == atTheTop; });
    program_->closePanel();
}

TEST_F(PanelContentTest, OtherKeysDoNothingAndTakeNothingFromIt)
{
    copyTexts({"A", "B"});
    const auto panel = program_->openPanel();
    desktop_.keyboard().type("vpxX\t\t ");
    for (const auto key : {XKB_KEY_Home, XKB_KEY_F5, XKB_KEY_Left, XKB_KEY_Delete})
        tap(static_cast<KeySymbol>(key));
    for (const auto key : {XKB_KEY_v, XKB_KEY_a, XKB_KEY_w, XKB_KEY_q})
        tapWithControl(static_cast<KeySymbol>(key));
    tap(XKB_KEY_Down);
    rows_->waitForSelection(1);
    EXPECT_EQ(program_->panel().find()->window, panel.window);
    confirm("A");
}

TEST_F(PanelContentTest, AClickSelectsAndADoubleClickPastes)
{
    copyTexts({"A", "B", "C"});
    program_->openPanel();
    rows_->waitForSelection(0);
    clickRow(1);
    rows_->waitForSelection(1);
    desktop_.pointer().moveTo(rows_->placeOf(2));
    expectOnClipboard("A", [this] {
        desktop_.pointer().doubleClick();
        program_->panel().waitUntilClosed();
    });
}

TEST_F(PanelContentTest, TheRowUnderThePointerIsHoveredWhateverScrollsThere)
{
    program_->openPanel();
    CountedCopies copies(desktop_, *program_);
    for (int number = 0; number < 9; ++number)
        copies.copyText("entry " + std::to_string(number));
    program_->closePanel();
    program_->openPanel();
    desktop_.pointer().moveTo(rows_->placeOf(2));
    const int pointer = desktop_.pointer().location().y - program_->panel().find()->frame.y;
    const auto isHoveredWhereThePointerIs = [&](const auto& rows) {
        return std::all_of(rows.begin(), rows.end(), [&](const PanelRow& row) {
            constexpr int outline = 2; // It belongs to the row.
            if (pointer >= row.top && pointer < row.bottom)
                return row.isHovered;
            return !row.isHovered || (pointer >= row.top - outline && pointer < row.bottom + outline);
        });
    };
    rows_->waitUntil("the third row hovered and the first selected", [&](const auto& rows) {
        return rows.size() > 3 && rows[2].isHovered && rows[0].isSelected && isHoveredWhereThePointerIs(rows);
    });
    for (int notch = 0; notch < 3; ++notch)
        desktop_.pointer().click(PointerButton::wheelDown);
    rows_->waitUntil(
        "the selected row out of view, and the one under the pointer hovered", [&](const auto& rows) {
            return std::none_of(rows.begin(), rows.end(), [](const auto& row) { return row.isSelected; }) &&
                   isHoveredWhereThePointerIs(rows);
        });
    tap(XKB_KEY_Up); // The first entry is still the selected one, and comes back.
    rows_->waitForSelection(0);
    desktop_.pointer().moveTo(restingPlace);
    rows_->waitUntil("no row hovered", [](const auto& rows) {
        return std::none_of(rows.begin(), rows.end(), [](const auto& row) { return row.isHovered; });
    });
    program_->closePanel();
}

TEST_F(PanelContentTest, TheMenuCopiesAndLeavesThePanelOpen)
{
    copyTexts({"A", "B", "C"});
    program_->openPanel();
    openMenuOn(2);
    expectOnClipboard("A", [this] {
        tap(XKB_KEY_Down);
        tap(XKB_KEY_Return);
        waitUntilMenuIsGone();
    });
    rows_->waitForSelection(0); // A right click selects nothing.
    program_->closePanel();
}

TEST_F(PanelContentTest, TheMenuPinsAndDeletes)
{
    copyTexts({"A", "B", "C"});
    program_->openPanel();
    openMenuOn(2);
    tap(XKB_KEY_Down);
    tap(XKB_KEY_Down);
    tap(XKB_KEY_Return);
    waitUntilMenuIsGone();
    rows_->waitUntil("A pinned",
                     [](const auto& rows) { return rows.size() == 3 && isApart(rows[0], rows[1]); });
    rows_->waitForSelection(1);
    openMenuOn(0);
    tap(XKB_KEY_Up); // To the last one.
    tap(XKB_KEY_Return);
    waitUntilMenuIsGone();
    rows_->waitForCount(2);
    tap(XKB_KEY_Down); // The keys are the panel's again.
    rows_->waitForSelection(1);
    program_->closePanel();
}

TEST_F(PanelContentTest, EscapeClosesTheMenuAndTheNextOneThePanel)
{
    copyTexts({"A", "B"});
    program_->openPanel();
    openMenuOn(1);
    tap(XKB_KEY_Escape);
    waitUntilMenuIsGone();
    EXPECT_TRUE(program_->panel().isOpen());
    tap(XKB_KEY_Down);
    rows_->waitForSelection(1);
    tap(XKB_KEY_Escape);
    program_->panel().waitUntilClosed();
}

TEST_F(PanelContentTest, TheMenuKeyOpensTheMenuOfTheSelectedRow)
{
    copyTexts({"A", "B"});
    program_->openPanel();
    tap(XKB_KEY_Down);
    rows_->waitForSelection(1);
    tap(XKB_KEY_Menu);
    desktop_.connection().waitUntil("the menu", [this] { return menu().has_value(); });
    tap(XKB_KEY_Up);
    tap(XKB_KEY_Return);
    rows_->waitForCount(1);
    program_->closePanel();
}

TEST_F(PanelContentTest, TheHotKeyClosesThePanelWithItsMenu)
{
    copyTexts({"A", "B"});
    program_->openPanel();
    openMenuOn(1);
    program_->pressHotKey();
    program_->panel().waitUntilClosed();
    waitUntilMenuIsGone();
    program_->openPanel();
    program_->closePanel();
}

TEST_F(PanelContentTest, AClickBesideTheMenuDoesNothingElse)
{
    copyTexts({"A", "B"});
    program_->openPanel();
    openMenuOn(1);
    desktop_.pointer().moveTo(clearAllButton());
    desktop_.pointer().click();
    waitUntilMenuIsGone();
    tap(XKB_KEY_Down);
    rows_->waitForSelection(1);
    EXPECT_EQ(rows_->waitForCount(2).size(), 2U);
    program_->closePanel();
}

TEST_F(PanelContentTest, TheMenuStaysWhileTheHistoryChanges)
{
    copyTexts({"A", "B"});
    program_->openPanel();
    openMenuOn(1);
    copies_->copyText("C");
    ASSERT_TRUE(menu());
    tap(XKB_KEY_Up);
    tap(XKB_KEY_Return);
    waitUntilMenuIsGone();
    rows_->waitForCount(2);
    rows_->waitForSelection(1);
    confirm("B");
}

TEST_F(PanelContentTest, ItsButtonsCloseAndClear)
{
    copyTexts({"A", "B", "C"});
    program_->openPanel();
    tapWithControl(XKB_KEY_p);
    rows_->waitUntil("a pin", [](const auto& rows) { return rows.size() == 3 && isApart(rows[0], rows[1]); });
    desktop_.pointer().moveTo(closeButton());
    desktop_.pointer().click();
    program_->panel().waitUntilClosed();
    program_->openPanel();
    rows_->waitForCount(3);
    desktop_.pointer().moveTo(clearAllButton());
    desktop_.pointer().click();
    rows_->waitForCount(0);
    program_->closePanel();
    copies_.reset();
    copyTexts({"D", "E"});
    program_->openPanel();
    rows_->waitForSelection(0);
    const auto rows = rows_->waitForCount(2);
    EXPECT_FALSE(isApart(rows[0], rows[1])) << "A pin is left.";
    program_->closePanel();
}

TEST_F(PanelContentTest, ANewEntryLeavesTheSelectionWhereItIs)
{
    copyTexts({"A", "B"});
    program_->openPanel();
    tap(XKB_KEY_Down);
    copies_->copyText("C");
    rows_->waitForSelection(2);
    confirm("A");
}

/// The tint is the settings'.
class PanelTintTest : public PanelContentTest {
protected:
    void SetUp() override {}
};

TEST_F(PanelTintTest, GoesFromNothingToBlack)
{
    // The bare material, blurred over the empty desktop, is a dark shade of its colour.
    for (const auto& [tint, colour] :
         std::vector<std::pair<std::string, Colour>>{{"0", {23, 32, 38}}, {"1", {0, 0, 0}}}) {
        restartProgramWith("{\"tesselclipboard.panelTintOpacity\": " + tint + "}");
        program_->openPanel();
        const auto picture = program_->panel().picture();
        const Colour& shown = picture.at(Panel::width / 2, picture.height - 20);
        for (std::size_t channel = 0; channel < colour.size(); ++channel)
            EXPECT_NEAR(shown[channel], colour[channel], 1) << tint << ' ' << channel;
        program_->closePanel();
    }
}

} // namespace

} // namespace tessel::desktop
