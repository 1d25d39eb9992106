#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TestLoop.h"
#include "TestPictures.h"
#include "VirtualDisplay.h"
#include "X11/Selections/X11Pasteboard.h"

namespace tessel {

/// The pasteboard on a virtual X server, with other applications beside it.
class PasteboardOnX11 : public ::testing::Test {
protected:
    static VirtualDisplay& display()
    {
        static VirtualDisplay display;
        return display;
    }

    SelectionsEnvironment environment(std::string displayName)
    {
        SelectionsEnvironment environment;
        environment.postToMain = [this](std::function<void()> work) { loop_.post(std::move(work)); };
        environment.fingerprintImage = sha256OfPNG;
        environment.displayName = std::move(displayName);
        return environment;
    }

    /// Another application that copies, and stays.
    void startCopying(const std::string& bytes, const std::string& target = "UTF8_STRING")
    {
        others_.push_back(
            ChildProcess::start({"xclip", "-quiet", "-selection", "clipboard", "-target", target, "-in"},
                                display().name(), bytes));
    }
    /// Another application that copies, which is one change.
    void copy(const std::string& bytes, const std::string& target = "UTF8_STRING")
    {
        const std::int64_t before = pasteboard_.changeCount();
        startCopying(bytes, target);
        ASSERT_TRUE(loop_.runUntil([&] { return pasteboard_.changeCount() > before; }));
        ASSERT_EQ(pasteboard_.changeCount(), before + 1);
    }
    /// Another application that copies a text, whatever else changes meanwhile.
    void copyAndAwait(const std::string& value)
    {
        startCopying(value);
        ASSERT_TRUE(loop_.runUntil([&] { return text() == value; }));
    }
    std::string paste(const std::string& target = "UTF8_STRING", const std::string& selection = "clipboard")
    {
        return ChildProcess::start({"xclip", "-selection", selection, "-target", target, "-out"},
                                   display().name())
            ->readAll();
    }
    /// Our own write is what others get a moment later; until then it is what was there before.
    bool isPasted(const std::string& value, const std::string& target = "UTF8_STRING",
                  const std::string& selection = "clipboard")
    {
        return loop_.runUntil([&] {
            loop_.post([] {});
            return paste(target, selection) == value;
        });
    }
    std::string text() { return pasteboard_.string() ? *pasteboard_.string() : "(none)"; }
    void write(std::string value)
    {
        pasteboard_.clearContents();
        pasteboard_.setString(std::make_shared<const std::string>(std::move(value)));
    }

    TestLoop loop_;
    X11Pasteboard pasteboard_{environment(display().name())};
    std::vector<std::unique_ptr<ChildProcess>> others_;
};

} // namespace tessel
