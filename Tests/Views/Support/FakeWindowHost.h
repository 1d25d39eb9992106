#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "WindowHost.h"

namespace tessel::test {

/// A material that notes what it is asked for.
class FakeVisualEffect final : public VisualEffect {
public:
    explicit FakeVisualEffect(std::vector<std::string>& calls)
        : calls_(calls)
    {}

    NativeWindowHandle view() const override { return NativeWindowHandle{17}; }
    void setCornerRadius(double radius) override
    {
        calls_.push_back("cornerRadius " + std::to_string(static_cast<int>(radius)));
    }
    void setMaterial(VisualEffectMaterial material) override { note("material", material); }
    void setBlendingMode(VisualEffectBlendingMode blendingMode) override
    {
        note("blendingMode", blendingMode);
    }
    void setState(VisualEffectState state) override { note("state", state); }

private:
    template <class Value>
    void note(const char* property, Value value)
    {
        calls_.push_back(std::string(property) + " " + std::to_string(static_cast<int>(value)));
    }

    std::vector<std::string>& calls_;
};

/// The controller of a window of the system's own that only its content can be seen of.
class FakeHostedController final : public PanelController {
public:
    explicit FakeHostedController(std::unique_ptr<HostedContent> content)
        : content_(std::move(content))
    {}

    bool hasWindow() const override { return true; }
    bool isWindowVisible() const override { return isVisible_; }
    void showWindow() override
    {
        content_->windowWillShow();
        isVisible_ = true;
    }
    void close() override
    {
        isVisible_ = false;
        content_->windowDidClose();
    }
    void setContentSize(Size size) override { frame_.size = size; }
    Rect frame() const override { return frame_; }
    void setFrameOrigin(Point origin) override { frame_.origin = origin; }
    void makeKeyAndOrderFront() override {}

    HostedContent& content() const { return *content_; }

private:
    std::unique_ptr<HostedContent> content_;
    Rect frame_;
    bool isVisible_ = false;
};

/// A system with windows of its own, which notes what it is asked for.
class FakeWindowHost final : public WindowHost {
public:
    std::vector<std::string> effectCalls;
    std::vector<WindowDescription> windows;
    std::vector<Rect> panels;

    std::unique_ptr<VisualEffect> makeVisualEffect() override
    {
        return std::make_unique<FakeVisualEffect>(effectCalls);
    }
    std::unique_ptr<PanelController> makePanel(const PanelDescription& description,
                                               std::unique_ptr<HostedContent> content) override
    {
        panels.push_back(description.contentRect);
        return std::make_unique<FakeHostedController>(std::move(content));
    }
    std::unique_ptr<WindowController> makeWindow(const WindowDescription& description,
                                                 std::unique_ptr<HostedContent> content) override
    {
        windows.push_back(description);
        return std::make_unique<FakeHostedController>(std::move(content));
    }
};

} // namespace tessel::test
