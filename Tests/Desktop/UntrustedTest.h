#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ClipboardOwner.h"
#include "ClipboardReader.h"
#include "Program.h"
#include "SelectionWatch.h"
#include "TextClient.h"

namespace tessel::desktop {

/// Tessel Clipboard where its keys do not reach every application. What it is told there it is told without
/// pressing a key.
class UntrustedTest : public testing::Test {
protected:
    explicit UntrustedTest(ServerChoice server)
        : desktop_({.server = server})
    {}

    /// Choosing an entry copies it, pastes nothing, and says why.
    void expectThatChoosingOnlyCopies()
    {
        Program program(desktop_);
        showPanel(program);
        const auto emptyPanel = program.panel().picture();
        ClipboardOwner owner(desktop_.displayName());
        owner.copyText("chosen");
        program.panel().waitUntilItDiffersFrom(emptyPanel);
        desktop_.keyboard().sendTap(XKB_KEY_Escape, program.panel().waitUntilOpen().window);
        program.panel().waitUntilClosed();

        TextClient target(desktop_, TextClientKind::gtk);
        for (int times = 0; times < 2; ++times) {
            owner.copyText("copied meanwhile");
            target.activate();
            SelectionWatch clipboard(desktop_.displayName());
            showPanel(program);
            program.panel().waitForHeight(Panel::heightFor(2));
            desktop_.keyboard().sendTap(XKB_KEY_Down, program.panel().waitUntilOpen().window);
            desktop_.keyboard().sendTap(XKB_KEY_Return, program.panel().waitUntilOpen().window);
            program.panel().waitUntilClosed();
            clipboard.waitForMoreThan(0);
            desktop_.windows().waitFor("the prompt", isPrompt);
            EXPECT_EQ(ClipboardReader(desktop_.displayName()).readText(), "chosen");
            desktop_.connection().waitUntil("the target to have the focus again",
                                            [&] { return target.hasFocus(); });
        }
        target.setText("what comes after every key");
        EXPECT_EQ(target.pasteCount(), 0);
        EXPECT_EQ(target.text(), "what comes after every key");
        EXPECT_TRUE(program.quit().succeeded());
    }

    /// Leaves the prompt on the screen, and the panel open above it.
    void showPromptAndPanel(Program& program)
    {
        showPanel(program);
        const auto emptyPanel = program.panel().picture();
        ClipboardOwner owner(desktop_.displayName());
        owner.copyText("chosen");
        program.panel().waitUntilItDiffersFrom(emptyPanel);
        desktop_.keyboard().sendTap(XKB_KEY_Return, program.panel().waitUntilOpen().window);
        program.panel().waitUntilClosed();
        desktop_.windows().waitFor("the prompt", isPrompt);
        showPanel(program);
    }

    static bool isPrompt(const WindowFacts& window)
    {
        return window.isViewable && window.title.starts_with("Paste it yourself");
    }

    void showPanel(Program& program)
    {
        Program::runOption(desktop_, "--show");
        program.panel().waitUntilOpen();
    }

    Desktop desktop_;
};

} // namespace tessel::desktop
