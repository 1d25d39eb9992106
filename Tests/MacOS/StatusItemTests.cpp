#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "AppKitStatusItem.h"
#include "Support/MacOSTest.h"
#include "Support/System.h"

namespace tessel::test {
namespace {

class StatusItemTests : public MacOSTest {
protected:
    StatusItemTests()
    {
        expectCall("[NSMenu init]", Object{"menu"});
        expectCall("[menu setAutoenablesItems:NO]");
        item.emplace();
    }

    ~StatusItemTests() override
    {
        if (isShown) {
            expectCall("[NSStatusBar systemStatusBar]", Object{"menu bar"});
            expectCall("[menu bar removeStatusItem:item]");
        }
        item.reset();
    }

    void show(Answer symbol, const std::string& look)
    {
        expectCall("[NSStatusBar systemStatusBar]", Object{"menu bar"});
        expectCall("[menu bar statusItemWithLength:-1]", Object{"item"});
        expectCall("[NSImage imageWithSystemSymbolName:@\"document.on.clipboard.fill\" "
                   "accessibilityDescription:@\"Clipboard\"]",
                   std::move(symbol));
        expectCall("[item button]", Object{"button"});
        expectCall(look);
        expectCall("[item setMenu:menu]");
        item->show({.title = "Clipboard",
                    .symbolName = "document.on.clipboard.fill",
                    .drawIcon = {},
                    .openMenu = {}});
        isShown = true;
    }

    void expectHeader(const std::string& shortcut)
    {
        expectCall("[NSMenuItem initWithTitle:@\"Tessel Clipboard\" action:NULL keyEquivalent:@\"\"]",
                   Object{"header"});
        expectCall("[NSFont preferredFontForTextStyle:@\"NSFontTextStyleHeadline\" options:@{}]",
                   Object{"headline"});
        expectCall(
            "[NSMutableAttributedString initWithString:@\"Tessel Clipboard\n\" attributes:@{@\"NSFont\": "
            "headline}]",
            Object{"text"});
        expectCall("[NSFont preferredFontForTextStyle:@\"NSFontTextStyleCaption1\" options:@{}]",
                   Object{"caption"});
        expectCall("[NSColor secondaryLabelColor]", Object{"dimmed"});
        expectCall("[NSAttributedString initWithString:@\"" + shortcut +
                       "\" attributes:@{@\"NSFont\": caption, @\"NSColor\": dimmed}]",
                   Object{"second line"});
        expectCall("[text appendAttributedString:second line]");
        expectCall("[header setAttributedTitle:text]");
        expectCall("[header setEnabled:NO]");
        expectCall("[menu addItem:header]");
    }

    void expectSeparator()
    {
        expectCall("[NSMenuItem separatorItem]", Object{"line"});
        expectCall("[menu addItem:line]");
    }

    void expectAction(const std::string& title)
    {
        expectCall("[NSMenuItem initWithTitle:@\"" + title + "\" action:choose: keyEquivalent:@\"\"]",
                   Object{"row"});
        expectCall("[row setTarget:target]");
        expectCall("[menu addItem:row]");
    }

    StatusMenuRow action(const std::string& title)
    {
        return {.kind = StatusMenuRow::Kind::action, .title = title, .caption = {}, .chosen = [this, title] {
                    chosen.push_back(title);
                }};
    }

    static StatusMenuRow separator()
    {
        return {.kind = StatusMenuRow::Kind::separator, .title = {}, .caption = {}, .chosen = {}};
    }

    void setNineRows(const std::string& shortcut)
    {
        expectCall("[menu removeAllItems]");
        expectHeader(shortcut);
        expectSeparator();
        for (const char* title :
             {"Open History", "Clear history", "Settings", "Check for Updates...", "About"})
            expectAction(title);
        expectSeparator();
        expectAction("Quit");
        item->setMenu({{.kind = StatusMenuRow::Kind::header,
                        .title = "Tessel Clipboard",
                        .caption = shortcut,
                        .chosen = {}},
                       separator(),
                       action("Open History"),
                       action("Clear history"),
                       action("Settings"),
                       action("Check for Updates..."),
                       action("About"),
                       separator(),
                       action("Quit")});
        expectNoMore();
    }

    std::optional<AppKitStatusItem> item;
    bool isShown = false;
    std::vector<std::string> chosen;
};

TEST_F(StatusItemTests, ShowsTheSystemsSymbolWithTheTitleForAssistivePrograms)
{
    show(Object{"symbol"}, "[button setImage:symbol]");
}

TEST_F(StatusItemTests, ShowsItsTitleWhereTheSystemDoesNotKnowTheSymbol)
{
    show(Nil{}, "[button setTitle:@\"Clipboard\"]");
}

TEST_F(StatusItemTests, HasNineRowsWithoutKeyboardShortcuts)
{
    setNineRows("Cmd + Shift + V");
}

TEST_F(StatusItemTests, ARowThatIsChosenRunsItsWork)
{
    show(Object{"symbol"}, "[button setImage:symbol]");
    setNineRows("Cmd + Shift + V");
    chooseMenuItem("Clear history");
    chooseMenuItem("Quit");
    EXPECT_EQ(chosen, (std::vector<std::string>{"Clear history", "Quit"}));
}

TEST_F(StatusItemTests, OtherRowsReplaceThoseBeforeInTheSameMenu)
{
    show(Object{"symbol"}, "[button setImage:symbol]");
    setNineRows("Cmd + Shift + V");
    setNineRows("Cmd + Option + V");
    chooseMenuItem("About");
    EXPECT_EQ(chosen, std::vector<std::string>{"About"});
}

TEST_F(StatusItemTests, TheWorkOfARowMaySetAnotherMenu)
{
    show(Object{"symbol"}, "[button setImage:symbol]");
    expectCall("[menu removeAllItems]");
    expectAction("Replace");
    int runs = 0;
    item->setMenu({{.kind = StatusMenuRow::Kind::action,
                    .title = "Replace",
                    .caption = {},
                    .chosen = [this, &runs, held = std::string("what the work holds, and is not short")] {
                        item->setMenu({});
                        runs += static_cast<int>(held.size() > 9);
                    }}});
    expectCall("[menu removeAllItems]");
    chooseMenuItem("Replace");
    EXPECT_EQ(runs, 1);
}

TEST_F(StatusItemTests, IsShownWhileTheMenuBarShowsIt)
{
    EXPECT_FALSE(item->isShown());
    show(Object{"symbol"}, "[button setImage:symbol]");
    expectCall("[item isVisible]", true);
    EXPECT_TRUE(item->isShown());
    expectCall("[item isVisible]", false);
    EXPECT_FALSE(item->isShown());
}

} // namespace
} // namespace tessel::test
