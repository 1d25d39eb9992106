#pragma once

#include <memory>
#include <string>
#include <utility>

#include "Fakes/CallLog.h"
#include "WindowController.h"

namespace tessel::test {

/// A controller of a window that nobody sees. Using it once it has been closed fails the test: a closed
/// controller is to be dropped.
class FakeWindowController final : public WindowController {
public:
    /// `name` begins each of its lines in the log.
    FakeWindowController(std::shared_ptr<CallLog> log, std::string name);
    ~FakeWindowController() override;

    /// The system hides the window, for instance because another application became active.
    void hide() { isVisible_ = false; }
    /// The controller loses its window.
    void loseWindow();

    bool hasWindow() const override { return hasWindow_; }
    bool isWindowVisible() const override { return isVisible_; }
    void showWindow() override;
    void close() override;

private:
    std::shared_ptr<CallLog> log_;
    std::string name_;
    bool hasWindow_ = true;
    bool isVisible_ = false;
    bool isClosed_ = false;
};

} // namespace tessel::test
