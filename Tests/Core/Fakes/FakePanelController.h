#pragma once

#include <memory>
#include <utility>

#include "Fakes/CallLog.h"
#include "PanelDescription.h"
#include "WindowController.h"

namespace tessel::test {

/// The controller of a panel that nobody sees. Using it once it has been closed, or asking for its frame
/// without a window, fails the test.
class FakePanelController final : public PanelController {
public:
    FakePanelController(std::shared_ptr<CallLog> log, PanelDescription description);
    ~FakePanelController() override;

    const PanelDescription& description() const { return description_; }
    /// The system hides the panel, for instance because another application became active.
    void hide() { isVisible_ = false; }
    /// The controller loses its window.
    void loseWindow();
    /// How often the panel was given an origin.
    int placements() const { return placements_; }

    bool hasWindow() const override { return hasWindow_; }
    bool isWindowVisible() const override { return isVisible_; }
    void showWindow() override;
    void close() override;
    void setContentSize(Size size) override;
    Rect frame() const override;
    void setFrameOrigin(Point origin) override;
    void makeKeyAndOrderFront() override;

private:
    void record(std::string call) const;

    std::shared_ptr<CallLog> log_;
    PanelDescription description_;
    Rect frame_;
    int placements_ = 0;
    bool hasWindow_ = true;
    bool isVisible_ = false;
    bool isClosed_ = false;
};

} // namespace tessel::test
