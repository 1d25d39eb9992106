#include "Monitors.h"

namespace tessel::desktop {

namespace {

/// What Xvfb calls its only output.
constexpr const char* output = "screen";

std::string modeName(Extent extent)
{
    return std::to_string(extent.width) + "x" + std::to_string(extent.height) + "-test";
}

} // namespace

Monitors::Monitors(Desktop& desktop)
    : desktop_(desktop)
{}

void Monitors::xrandr(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), "xrandr");
    const auto result = runCommand(arguments, desktop_.environment());
    if (!result.status.succeeded())
        throw DesktopFailure("xrandr failed: " + result.errorOutput);
}

void Monitors::set(const std::vector<Monitor>& monitors, Primary primary)
{
    for (const auto& name : names_)
        xrandr({"--delmonitor", name});
    names_.clear();
    for (const auto& monitor : monitors) {
        const bool isFirst = names_.empty();
        const auto& frame = monitor.frame;
        // At about 96 pixels for each inch, so that the monitor itself asks for no scale.
        const auto millimetres = [](int pixels) { return std::to_string(pixels * 254 / 960); };
        const auto geometry = std::to_string(frame.width) + "/" + millimetres(frame.width) + "x" +
                              std::to_string(frame.height) + "/" + millimetres(frame.height) + "+" +
                              std::to_string(frame.x) + "+" + std::to_string(frame.y);
        // An asterisk marks the primary one. The output would go on being a monitor of its own if it belonged
        // to none of these.
        xrandr({"--setmonitor", (isFirst && primary == Primary::first ? "*" : "") + monitor.name, geometry,
                isFirst ? output : "none"});
        names_.push_back(monitor.name);
    }
}

void Monitors::resizeScreen(Extent extent)
{
    const auto width = std::to_string(extent.width);
    const auto height = std::to_string(extent.height);
    const auto mode = modeName(extent);
    xrandr({"--newmode", mode, "0", width, "0", "0", width, height, "0", "0", height});
    xrandr({"--addmode", output, mode});
    xrandr({"--output", output, "--mode", mode});
}

void Monitors::switchOff()
{
    // The screen keeps its extent, which cannot be nothing.
    const auto [width, height] = desktop_.screen();
    xrandr({"--output", output, "--off", "--fb", std::to_string(width) + "x" + std::to_string(height)});
}

void Monitors::switchOn()
{
    xrandr({"--output", output, "--auto"});
}

} // namespace tessel::desktop
