#pragma once

#include <memory>
#include <string>

#include "WindowController.h"
#include "WindowFactory.h"

namespace tessel::test {

/// A panel whose calls are part of the script, among those that the system receives: `panel.showWindow()`.
class ScriptedPanel final : public PanelController {
public:
    bool hasWindow() const override { return true; }
    bool isWindowVisible() const override;
    void showWindow() override;
    void close() override;
    void setContentSize(Size size) override;
    Rect frame() const override;
    void setFrameOrigin(Point origin) override;
    void makeKeyAndOrderFront() override;
};

/// A window whose calls are part of the script, under its name.
class ScriptedWindow final : public WindowController {
public:
    explicit ScriptedWindow(std::string name);

    bool hasWindow() const override { return true; }
    bool isWindowVisible() const override;
    void showWindow() override;
    void close() override;

private:
    std::string name_;
};

/// Making a window is part of the script, too: `panel.make()`.
WindowFactory scriptedWindows();

} // namespace tessel::test
