#include "OpenWindows.h"

#include <cmath>
#include <thread>

#include "Desktop.h"
#include "ProcessFigures.h"
#include "Program.h"
#include "ProgramWindow.h"

namespace tessel::bench {

namespace {

using namespace desktop;
using namespace std::chrono_literals;

/// The circles of the background there and back again.
constexpr auto span = 12s;

} // namespace

double shareOfOpenWindows(double scale)
{
    const auto pixels = [scale](int points) { return static_cast<int>(std::lround(points * scale)); };
    Desktop desktop({.screen = {pixels(960), pixels(560)}, .scale = scale});
    desktop.pointer().moveTo({0, 0});
    Program program(desktop);
    const auto open = [&](const std::string& option, const std::string& title, Frame frame) {
        Program::runOption(desktop, option);
        ProgramWindow window(desktop, program.process().pid(), title);
        desktop.windows().move(window.waitUntilOpen().window, frame.x, frame.y);
        window.waitForFrame(frame);
    };
    open("--settings", "Settings", {pixels(20), pixels(20), pixels(420), pixels(520)});
    open("--about", "About Tessel Clipboard", {pixels(500), pixels(20), pixels(420), pixels(340)});
    std::this_thread::sleep_for(2s); // They have come in then.
    const auto before = usage(program.process().pid());
    std::this_thread::sleep_for(span);
    const auto used = usage(program.process().pid()) - before;
    program.quit();
    return std::chrono::duration<double>(used.processorTime) / std::chrono::duration<double>(span);
}

} // namespace tessel::bench
