#pragma once

#include <memory>

#include "Updates/UpdateUserDriver.h"
#include "Windows/SecondaryWindowController.h"

namespace tessel {

class Application;
class UpdateWindow;
class WindowTheme;

/// Shows what there is to say of updates in one window, which is made when it is needed and goes with what it
/// shows.
class UpdateWindowDriver final : public UpdateUserDriver {
public:
    /// All of them outlive this object.
    struct Needs {
        WindowTheme& theme;
        NativeWindows& nativeWindows;
        const Screens& screens;
        Application& application;
    };

    explicit UpdateWindowDriver(const Needs& needs);
    ~UpdateWindowDriver() override;

    void show(const UpdateStatus& status, UpdateOccasion occasion,
              std::function<void(UpdateAnswer)> answer) override;
    void bringForward() override;
    void close() override;

    /// The window. Null: nothing is shown.
    UpdateWindow* window() const;

private:
    void replace(const UpdateStatus& status, std::function<void(UpdateAnswer)> answer);

    Needs needs_;
    std::unique_ptr<SecondaryWindowController> controller_;
};

} // namespace tessel
