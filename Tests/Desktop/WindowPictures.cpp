#include "WindowPictures.h"

#include "Landscape.h"
#include "Program.h"
#include "ProgramWindow.h"
#include "SettingsPortal.h"

namespace tessel::desktop {

namespace {

struct Subject {
    std::string name;
    std::string title;
    std::vector<std::string> arguments = {}; ///< With which the program opens it.
    Environment variables = {};
};

const std::vector<Subject>& subjects()
{
    static const std::vector<Subject> subjects = {
        {"settings", "Settings", {"--settings"}},
        {"about", "About Tessel Clipboard", {"--about"}},
        // It opens where no keys can be sent.
        {"onboarding", "Setup Required", {}, {{"XDG_SESSION_TYPE", "wayland"}}},
    };
    return subjects;
}

void take(const Subject& subject, const Surroundings& surroundings, SettingsPortal::Scheme scheme,
          const std::filesystem::path& file)
{
    DesktopOptions options = surroundings.desktop();
    options.variables = subject.variables;
    Desktop desktop(std::move(options));
    const Extent screen = desktop.screen();
    desktop.pixels().paintBackground(makeLandscape(screen.width, screen.height));
    desktop.pointer().moveTo(farFromTheWindows);
    SettingsPortal portal(desktop);
    portal.setColorScheme(scheme);
    portal.setReducedMotion(true);
    portal.start();
    Program program(desktop, subject.arguments);
    ProgramWindow window(desktop, program.process().pid(), subject.title);
    const Frame frame = window.waitUntilOpen().frame;
    program.waitUntilItHasRead();
    saveWithSurroundings(desktop, frame, file);
    program.quit();
}

} // namespace

void takeWindowPictures(const Surroundings& surroundings, const std::filesystem::path& directory)
{
    std::filesystem::create_directories(directory);
    for (const Subject& subject : subjects()) {
        take(subject, surroundings, SettingsPortal::Scheme::light, directory / (subject.name + "-light.png"));
        take(subject, surroundings, SettingsPortal::Scheme::dark, directory / (subject.name + "-dark.png"));
    }
}

} // namespace tessel::desktop
