#pragma once

#include <optional>

#include "HostedContent.h"
#include "Support/System.h"

namespace tessel::test {

/// What a window shows, in a native view called `content`. What the window tells it is part of the script,
/// among the calls that the system receives: `content.windowWillShow()`. So is its end: `content.end()`.
class ScriptedContent final : public HostedContent {
public:
    explicit ScriptedContent(std::optional<NativeWindowHandle> background = std::nullopt);
    ~ScriptedContent() override;

    NativeWindowHandle view() const override { return view_.handle(); }
    std::optional<NativeWindowHandle> background() const override { return background_; }
    void windowWillShow() override;
    void windowDidClose() override;

private:
    ToolkitView view_{"content"};
    std::optional<NativeWindowHandle> background_;
};

} // namespace tessel::test
