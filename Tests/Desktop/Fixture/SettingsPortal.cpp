#include "SettingsPortal.h"

#include "ClientFiles.h"

namespace tessel::desktop {

SettingsPortal::SettingsPortal(Desktop& desktop)
    : process_({clientFile("settings-portal").string()}, desktop.environment())
{}

void SettingsPortal::start()
{
    tell("start");
}

void SettingsPortal::setColorScheme(Scheme scheme)
{
    tell("color-scheme " + std::to_string(static_cast<int>(scheme)));
}

void SettingsPortal::setAccentColor(const Colour& colour)
{
    std::string line = "accent-color";
    for (const auto part : colour)
        line += " " + std::to_string(part / 255.0);
    tell(line);
}

void SettingsPortal::setReducedMotion(bool isReduced)
{
    tell(isReduced ? "reduced-motion 1" : "reduced-motion 0");
}

void SettingsPortal::tell(const std::string& line)
{
    process_.writeLine(line);
    process_.waitForLine("ok");
}

} // namespace tessel::desktop
