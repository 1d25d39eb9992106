#pragma once

#include <functional>

#include "Support/StateView.h"

namespace tessel {

class WindowTheme;

/// The content of the window with the settings.
class SettingsView final : public StateView {
    Q_OBJECT

public:
    /// `close` closes the window. `theme` must outlive this object.
    SettingsView(AppState& appState, WindowTheme& theme, std::function<void()> close);

private:
    void showState(const AppState& state) override;

    WindowTheme& theme_;
    std::function<void()> close_;
};

} // namespace tessel
