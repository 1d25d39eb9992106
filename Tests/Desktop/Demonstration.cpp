// Does the main job on a desktop of its own, step by step, as a person would: copy, hot key, choose, paste.
// Prints what was checked in each step, leaves pictures behind, and succeeds only if every check held.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ClipboardReader.h"
#include "Desktop.h"
#include "Executables.h"
#include "ImageClient.h"
#include "KeyboardEditor.h"
#include "Program.h"
#include "SelectionWatch.h"
#include "TextClient.h"

namespace tessel::desktop {

namespace {

/// The editor that the demonstration types into: Mousepad where it is installed, else a GTK text view.
class Editor {
public:
    explicit Editor(Desktop& desktop)
    {
        if (KeyboardEditor::isInstalled())
            mousepad_ = std::make_unique<KeyboardEditor>(desktop);
        else
            textView_ = std::make_unique<TextClient>(desktop, TextClientKind::gtk);
    }

    std::string name() const { return mousepad_ ? "Mousepad" : "a GTK text view"; }
    void activate() { mousepad_ ? mousepad_->activate() : textView_->activate(); }
    bool hasFocus() { return mousepad_ ? mousepad_->hasFocus() : textView_->hasFocus(); }
    void waitForText(const std::string& expected)
    {
        if (mousepad_)
            mousepad_->waitForSavedText(expected);
        else
            textView_->waitForText(expected);
    }

private:
    std::unique_ptr<KeyboardEditor> mousepad_;
    std::unique_ptr<TextClient> textView_;
};

void require(bool condition, const std::string& failure)
{
    if (!condition)
        throw DesktopFailure(failure);
}

class Demonstration {
public:
    explicit Demonstration(std::filesystem::path pictures)
        : pictures_(std::move(pictures))
        , desktop_({.screen = {1280, 800},
                    .compositor = findExecutable("picom") ? CompositorChoice::picom : CompositorChoice::none})
    {
        std::filesystem::create_directories(pictures_);
    }

    /// Returns whether every check held.
    bool run()
    {
        const std::vector<std::pair<const char*, std::string (Demonstration::*)()>> steps = {
            {"Start Tessel Clipboard", &Demonstration::startProgram},
            {"Open a text editor", &Demonstration::openEditor},
            {"Type three lines and copy each of them", &Demonstration::copyThreeLines},
            {"Press Super+Shift+V", &Demonstration::pressHotKey},
            {"Press Down, then Return", &Demonstration::chooseSecond},
            {"Open the history again", &Demonstration::lookAtHistory},
            {"Copy an image in one program and paste it into another", &Demonstration::pasteImage},
            {"Quit, and look for traces", &Demonstration::quit},
        };
        for (const auto& [title, step] : steps) {
            if (!runStep(title, step))
                return false;
        }
        std::printf("Everything that was checked held. Pictures: %s\n", pictures_.c_str());
        return true;
    }

private:
    bool runStep(const char* title, std::string (Demonstration::*step)())
    {
        std::printf("%d. %s\n", ++stepNumber_, title);
        std::fflush(stdout);
        try {
            std::printf("   checked: %s\n", (this->*step)().c_str());
            return true;
        } catch (const DesktopFailure& failure) {
            std::printf("   FAILED: %s\n", failure.what());
            takePicture("failure");
            std::printf("   The screen as it was: %s\n", (pictures_ / "failure.png").c_str());
            return false;
        }
    }

    void takePicture(const std::string& name)
    {
        writePng(desktop_.pixels().readQuietScreen(), pictures_ / (name + ".png"));
    }

    std::string startProgram()
    {
        desktop_.pointer().moveTo({40, 60});
        program_ = std::make_unique<Program>(desktop_);
        program_->openPanel();
        emptyPanel_ = program_->panel().picture();
        takePicture("1-empty-history");
        program_->closePanel();
        return "it runs on display " + desktop_.displayName() +
               ", has its hot key, answers on the session bus, and shows an empty history";
    }

    std::string openEditor()
    {
        editor_ = std::make_unique<Editor>(desktop_);
        require(editor_->hasFocus(), "the editor has not got the keyboard focus");
        return editor_->name() + " has the keyboard focus";
    }

    /// Selects the line that was just typed, copies it, and waits until it is an entry.
    void copyLine(std::size_t entryCount)
    {
        SelectionWatch clipboard(desktop_.displayName());
        const auto before = clipboard.count();
        desktop_.keyboard().chord({XKB_KEY_Shift_L}, XKB_KEY_Home);
        desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_c);
        clipboard.waitForMoreThan(before);
        program_->openPanel();
        program_->panel().waitForHeight(Panel::heightFor(entryCount));
        if (entryCount == 1)
            program_->panel().waitUntilItDiffersFrom(emptyPanel_);
        program_->closePanel();
        editor_->activate();
    }

    std::string copyThreeLines()
    {
        for (std::size_t index = 0; index < lines_.size(); ++index) {
            desktop_.keyboard().type(lines_[index]);
            copyLine(index + 1);
            desktop_.keyboard().tap(XKB_KEY_End);
            desktop_.keyboard().type("\n");
            typed_ += lines_[index] + "\n";
        }
        editor_->waitForText(typed_);
        takePicture("2-three-lines-copied");
        return "the history has grown by one entry with each copy, to three";
    }

    std::string pressHotKey()
    {
        const Place pointer{560, 180};
        desktop_.pointer().moveTo(pointer);
        program_->openPanel();
        const auto expected = Panel::frameBeside(pointer, lines_.size(), desktop_.screen());
        const auto panel = program_->panel().waitForFrame(expected);
        takePicture("3-history");
        return "the history is open beside the pointer (" + panel.frame.description() +
               ") and has the keyboard focus";
    }

    std::string chooseSecond()
    {
        desktop_.keyboard().tap(XKB_KEY_Down);
        desktop_.keyboard().tap(XKB_KEY_Return);
        program_->panel().waitUntilClosed();
        typed_ += lines_[1];
        editor_->waitForText(typed_);
        require(editor_->hasFocus(), "the editor has not got the keyboard focus back");
        // What is typed now comes behind any further paste that might have been on its way.
        desktop_.keyboard().type("!");
        typed_ += "!";
        editor_->waitForText(typed_);
        takePicture("4-pasted");
        require(ClipboardReader(desktop_.displayName()).readText() == lines_[1],
                "the clipboard does not hold the chosen entry");
        return "\"" + lines_[1] +
               "\" is in the editor exactly once, the editor has the focus, and the clipboard holds it";
    }

    std::string lookAtHistory()
    {
        program_->openPanel();
        program_->panel().waitForHeight(Panel::heightFor(lines_.size()));
        program_->closePanel();
        return "pasting has made no new entry: there are still three";
    }

    std::string pasteImage()
    {
        const auto file = desktop_.directory().path() / "picture.png";
        writePng(makeTestPicture(240, 180, 5), file);
        ImageClient source(desktop_, "Picture to copy");
        source.copy(file);
        program_->openPanel();
        program_->panel().waitForHeight(Panel::heightFor(lines_.size() + 1));
        takePicture("5-image-in-history");
        program_->closePanel();

        ImageClient target(desktop_, "Picture pasted here");
        program_->openPanel();
        desktop_.keyboard().tap(XKB_KEY_Return);
        const auto pasted = target.waitForPastedPicture();
        require(pasted == source.describe(file), "the pixels differ: " + pasted);
        takePicture("6-image-pasted");
        return "the image arrived with the same pixels (" + pasted + ")";
    }

    std::string quit()
    {
        const auto status = program_->quit();
        require(status.succeeded(), "it ended with " + status.description());
        const auto complaint = Program::sanitizerComplaint(program_->process().errorOutput());
        require(complaint.empty(), complaint);
        // The editor's own file has the lines; nothing else may.
        for (const auto& file : desktop_.directory().filesContaining(lines_[0]))
            require(file.filename() == "note.txt", "what was copied is in " + file.string());
        return "it ended well, and nothing that was copied is in any file of the home directory";
    }

    const std::vector<std::string> lines_ = {"Tessel keeps what you copy,", "puts it back where you type,",
                                             "and forgets it when it ends."};
    std::filesystem::path pictures_;
    Desktop desktop_;
    int stepNumber_ = 0;
    std::string typed_;
    Picture emptyPanel_;
    std::unique_ptr<Program> program_;
    std::unique_ptr<Editor> editor_;
};

} // namespace

} // namespace tessel::desktop

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        std::fputs("Usage: tessel-demonstration DIRECTORY\nDoes the main job on a virtual desktop, and "
                   "leaves pictures in the "
                   "directory.\n",
                   stderr);
        return EXIT_FAILURE;
    }
    try {
        tessel::desktop::Demonstration demonstration(arguments[1]);
        return demonstration.run() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "The demonstration cannot run: %s\n", failure.what());
        return EXIT_FAILURE;
    }
}
