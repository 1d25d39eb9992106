#pragma once

#include <map>

#include "Applications.h"
#include "ImageClient.h"
#include "ProgramTest.h"

namespace tessel::desktop {

/// Tessel Clipboard beside an application that copies and quits.
class ApplicationTest : public ProgramTest {
protected:
    /// The values by their targets.
    using Values = std::map<std::string, std::optional<std::string>>;

    void SetUp() override { startWithOneEntry(); }

    /// A panel with one entry is as high as an empty one, with two it is higher.
    void startWithOneEntry()
    {
        copies_.reset();
        program_.emplace(desktop_);
        copyTexts({"from before"});
    }

    /// What the owner of the clipboard has now.
    Values read(const std::vector<std::string>& targets)
    {
        ClipboardReader reader(desktop_.displayName());
        Values values;
        for (const auto& target : targets)
            values[target] = reader.read(target);
        return values;
    }

    /// Copies in an application that is in front, and quits it once the copy has become an entry. Afterwards
    /// everything is as the application itself had offered it, which is returned, and it is one entry.
    Values copyAndQuit(Application& application, const std::vector<std::string>& targets)
    {
        application.copy();
        const auto offered = read(targets);
        expectEntryCount(2);
        quitAndCompare(application, offered);
        return offered;
    }

    /// Quits it. Everything is as it had been offered, and one new entry.
    void quitAndCompare(Application& application, const Values& offered)
    {
        application.quit();
        waitForOwner();
        std::vector<std::string> targets;
        for (const auto& [target, value] : offered)
            targets.push_back(target);
        for (const auto& [target, value] : read(targets))
            EXPECT_TRUE(value == offered.at(target))
                << target << " has changed to: " << value.value_or("none");
        letTheProgramTick();
        expectEntryCount(2);
    }

    void waitForOwner()
    {
        desktop_.connection().waitUntil("the clipboard to have an owner", [&] {
            return desktop_.connection().selectionOwner("CLIPBOARD") != XCB_WINDOW_NONE;
        });
    }

    /// The clipboard and the newest entry paste this text.
    void expectTextPastes(const std::string& text)
    {
        {
            TextClient editor(desktop_, TextClientKind::gtk);
            editor.pressPasteKeys();
            expectPastedOnce(editor, text);
        }
        TextClient editor(desktop_, TextClientKind::qt);
        choose(0);
        expectPastedOnce(editor, text);
    }

    /// The clipboard and the newest entry paste the picture in this file.
    void expectPicturePastes(const std::filesystem::path& file)
    {
        ImageClient board(desktop_, "board");
        const auto description = board.describe(file);
        desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_v);
        EXPECT_EQ(board.waitForPastedPicture(), description);
        choose(0);
        EXPECT_EQ(board.waitForPastedPicture(), description);
    }
};

} // namespace tessel::desktop
