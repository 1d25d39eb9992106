#pragma once

#include "ProgramTest.h"
#include "ProgramWindow.h"

namespace tessel::desktop {

/// The running program with its windows beside the panel, opened as a user opens them.
class SecondaryWindowTest : public ProgramTest {
protected:
    explicit SecondaryWindowTest(DesktopOptions options = {})
        : ProgramTest(std::move(options))
    {}

    ProgramWindow window(const std::string& title) { return {desktop_, program_->process().pid(), title}; }
    ProgramWindow settings() { return window("Settings"); }
    ProgramWindow about() { return window("About Tessel Clipboard"); }

    WindowFacts openSettings()
    {
        EXPECT_TRUE(Program::runOption(desktop_, "--settings").status.succeeded());
        return settings().waitUntilOpen();
    }
    WindowFacts openAbout()
    {
        EXPECT_TRUE(Program::runOption(desktop_, "--about").status.succeeded());
        return about().waitUntilOpen();
    }

    /// In points.
    static constexpr Extent settingsSize{420, 520};
    static constexpr Extent aboutSize{420, 340};
};

} // namespace tessel::desktop
