#include "Support/ScriptedWindows.h"

#include <cstdio>
#include <utility>

#include <gtest/gtest.h>

#include "Support/CallScript.h"

namespace tessel::test {

namespace {

Answer receive(const std::string& call)
{
    return CallScript::current().receive(call);
}

bool receiveTruth(const std::string& call)
{
    const Answer answer = receive(call);
    return std::holds_alternative<bool>(answer) && std::get<bool>(answer);
}

std::string pairText(double first, double second)
{
    char text[64];
    std::snprintf(text, sizeof text, "(%g, %g)", first, second);
    return text;
}

std::unique_ptr<WindowController> makeWindow(const std::string& name)
{
    receive(name + ".make()");
    return std::make_unique<ScriptedWindow>(name);
}

} // namespace

bool ScriptedPanel::isWindowVisible() const
{
    return receiveTruth("panel.isWindowVisible()");
}

void ScriptedPanel::showWindow()
{
    receive("panel.showWindow()");
}

void ScriptedPanel::close()
{
    receive("panel.close()");
}

void ScriptedPanel::setContentSize(Size size)
{
    receive("panel.setContentSize" + pairText(size.width, size.height));
}

Rect ScriptedPanel::frame() const
{
    const Answer answer = receive("panel.frame()");
    const auto* numbers = std::get_if<Numbers>(&answer);
    if (numbers == nullptr || numbers->values.size() != 4) {
        ADD_FAILURE() << "The panel's frame has four numbers";
        return {};
    }
    return {{numbers->values[0], numbers->values[1]}, {numbers->values[2], numbers->values[3]}};
}

void ScriptedPanel::setFrameOrigin(Point origin)
{
    receive("panel.setFrameOrigin" + pairText(origin.x, origin.y));
}

void ScriptedPanel::makeKeyAndOrderFront()
{
    receive("panel.makeKeyAndOrderFront()");
}

ScriptedWindow::ScriptedWindow(std::string name)
    : name_(std::move(name))
{}

bool ScriptedWindow::isWindowVisible() const
{
    return receiveTruth(name_ + ".isWindowVisible()");
}

void ScriptedWindow::showWindow()
{
    receive(name_ + ".showWindow()");
}

void ScriptedWindow::close()
{
    receive(name_ + ".close()");
}

WindowFactory scriptedWindows()
{
    const auto window = [](std::string name) { return [name](AppState&) { return makeWindow(name); }; };
    return {
        .panel =
            [](AppState&, const PanelDescription&) {
                receive("panel.make()");
                return std::make_unique<ScriptedPanel>();
            },
        .settings = window("settings"),
        .about = window("about"),
        .onboarding = window("onboarding"),
    };
}

} // namespace tessel::test
