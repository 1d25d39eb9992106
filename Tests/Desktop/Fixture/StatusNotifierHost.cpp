#include "StatusNotifierHost.h"

#include <sstream>

#include "ClientFiles.h"
#include "PercentText.h"

namespace tessel::desktop {

namespace {

StatusMenuEntry::Kind kindNamed(const std::string& name)
{
    if (name == "separator")
        return StatusMenuEntry::Kind::separator;
    return name == "enabled" ? StatusMenuEntry::Kind::enabled : StatusMenuEntry::Kind::disabled;
}

} // namespace

StatusNotifierHost::StatusNotifierHost(Desktop& desktop)
    : process_({clientFile("status-notifier-host").string()}, desktop.environment())
{}

void StatusNotifierHost::start()
{
    tell("start");
}

void StatusNotifierHost::stop()
{
    tell("stop");
}

void StatusNotifierHost::awaitItem()
{
    tell("await-item");
}

void StatusNotifierHost::awaitNoItem()
{
    tell("await-no-item");
}

std::string StatusNotifierHost::property(const std::string& name)
{
    return unescaped(tell("property " + name));
}

std::vector<std::uint32_t> StatusNotifierHost::icon(int size)
{
    std::istringstream line(tell("icon " + std::to_string(size)));
    std::vector<std::uint32_t> pixels;
    for (std::uint32_t pixel = 0; line >> pixel;)
        pixels.push_back(pixel);
    return pixels;
}

void StatusNotifierHost::activate(int x, int y)
{
    tell("activate " + std::to_string(x) + " " + std::to_string(y));
}

void StatusNotifierHost::openMenu()
{
    tell("open-menu");
}

std::vector<StatusMenuEntry> StatusNotifierHost::menu()
{
    std::string_view rest;
    const std::string line = tell("menu");
    std::vector<StatusMenuEntry> entries;
    // Each entry is its kind and its label, which may be empty.
    for (rest = line; !rest.empty();) {
        const SplitLine kind = splitLine(rest);
        const SplitLine label = splitLine(kind.rest);
        entries.push_back({kindNamed(std::string(kind.word)), unescaped(label.word)});
        rest = label.rest;
    }
    return entries;
}

void StatusNotifierHost::awaitLabel(const std::string& label)
{
    tell("await-label " + escaped(label));
}

void StatusNotifierHost::click(const std::string& label)
{
    const std::string complaint = tell("click " + escaped(label));
    if (!complaint.empty())
        throw DesktopFailure("\"" + label + "\" cannot be clicked: " + complaint);
}

std::string StatusNotifierHost::tell(const std::string& line)
{
    process_.writeLine(line);
    return process_.waitForLine("ok").substr(3);
}

} // namespace tessel::desktop
