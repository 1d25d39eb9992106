#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <thread>

#include "ClipboardReader.h"
#include "CountedCopies.h"
#include "Desktop.h"
#include "Program.h"
#include "SelectionWatch.h"
#include "TextClient.h"

namespace tessel::desktop {

using namespace std::chrono_literals;

/// Tessel Clipboard on a desktop of its own. It has to end well after every test, without a sanitizer's
/// complaint and with no key left down.
class ProgramTest : public testing::Test {
protected:
    explicit ProgramTest(DesktopOptions options = {})
        : desktop_(std::move(options))
    {
        // Away from everything, with room for the panel.
        desktop_.pointer().moveTo(restingPlace);
    }

    void SetUp() override { program_.emplace(desktop_); }

    void TearDown() override
    {
        EXPECT_FALSE(desktop_.keyboard().isAnyKeyDown()) << "a key was left down";
        endProgram();
    }

    /// Ends the program, which has to succeed.
    void endProgram()
    {
        if (!program_)
            return;
        const auto status = program_->quit();
        EXPECT_TRUE(status.succeeded()) << status.description();
        EXPECT_EQ(Program::sanitizerComplaint(program_->process().errorOutput()), "");
        program_.reset();
    }

    void restartProgram()
    {
        endProgram();
        program_.emplace(desktop_);
    }

    /// Starts the program anew with the settings of a JSON object.
    void restartProgramWith(const std::string& settings, const HotKey& hotKey = superShiftV)
    {
        endProgram();
        desktop_.directory().write("home/.config/tessel-clipboard/settings.json", settings);
        program_.emplace(desktop_, std::vector<std::string>{}, hotKey);
    }

    /// Waits for something that must not happen: there is nothing to await. Two polls of the clipboard fit
    /// in.
    static void letTheProgramTick() { std::this_thread::sleep_for(1500ms); }

    /// Opens the panel, waits until it has the height for this many entries, and closes it.
    void expectEntryCount(std::size_t count)
    {
        program_->openPanel();
        program_->panel().waitForHeight(Panel::heightFor(count));
        program_->closePanel();
    }

    /// Copies texts by the keys of an editor, and waits until each has become an entry.
    void copyInEditor(TextClient& editor, const std::vector<std::string>& texts)
    {
        program_->openPanel();
        const auto emptyPanel = program_->panel().picture();
        program_->closePanel();
        std::size_t count = 0;
        for (const auto& text : texts) {
            editor.activate();
            editor.copyByKeys(text);
            program_->openPanel();
            program_->panel().waitForHeight(Panel::heightFor(++count));
            if (count == 1)
                program_->panel().waitUntilItDiffersFrom(emptyPanel);
            program_->closePanel();
        }
    }

    /// Copies texts without an editor, and leaves the panel closed.
    void copyTexts(const std::vector<std::string>& texts)
    {
        program_->openPanel();
        if (!copies_)
            copies_.emplace(desktop_, *program_);
        for (const auto& text : texts)
            copies_->copyText(text);
        program_->closePanel();
    }

    /// Opens the panel over an editor that has the focus, moves down and confirms. Returns when the panel is
    /// closed and the clipboard has another owner.
    void choose(int downPresses, std::chrono::milliseconds holdReturn = {})
    {
        SelectionWatch clipboard(desktop_.displayName());
        program_->openPanel();
        for (int press = 0; press < downPresses; ++press)
            desktop_.keyboard().tap(XKB_KEY_Down);
        desktop_.keyboard().tap(XKB_KEY_Return, holdReturn);
        program_->panel().waitUntilClosed();
        clipboard.waitForMoreThan(0);
    }

    /// `text` is what one paste brought into an empty editor. What is typed afterwards comes behind every
    /// other paste that may have been on its way.
    void expectPastedOnce(TextClient& editor, const std::string& text)
    {
        editor.waitForText(text);
        letTheProgramTick();
        desktop_.keyboard().type("!");
        editor.waitForText(text + "!");
        EXPECT_EQ(editor.pasteCount(), 1);
        EXPECT_TRUE(editor.hasFocus());
    }

    /// The first entry arrives in `field` exactly as a paste by hand brings it, which begins with
    /// `beginning`.
    void expectPastedAsByHand(TextClient& field, const std::string& beginning)
    {
        field.pressPasteKeys();
        std::string byHand;
        desktop_.connection().waitUntil("the paste by hand",
                                        [&] { return !(byHand = field.text()).empty(); });
        EXPECT_EQ(byHand.substr(0, beginning.size()), beginning);
        field.setText("");
        choose(0);
        field.waitForText(byHand);
        letTheProgramTick();
        desktop_.keyboard().type("!");
        field.waitForText(byHand + "!");
        EXPECT_EQ(field.pasteCount(), 2);
    }

    void waitUntilNoKeyIsDown()
    {
        desktop_.connection().waitUntil("every key to be up again",
                                        [this] { return !desktop_.keyboard().isAnyKeyDown(); });
    }

    /// Super is held down from the hot key until the entry, `text`, has arrived.
    void pasteTheSecondEntryUnderHeldSuper(TextClient& target, const std::string& text)
    {
        auto& keyboard = desktop_.keyboard();
        keyboard.press(XKB_KEY_Super_L);
        keyboard.chord({XKB_KEY_Shift_L}, XKB_KEY_v);
        program_->panel().waitUntilOpen();
        keyboard.tap(XKB_KEY_Down);
        keyboard.tap(XKB_KEY_Return);
        target.waitForText(text);
        keyboard.release(XKB_KEY_Super_L);
        waitUntilNoKeyIsDown();
    }

    static constexpr Place restingPlace{40, 60};

    Desktop desktop_;
    std::optional<Program> program_;
    std::optional<CountedCopies> copies_;
};

} // namespace tessel::desktop
