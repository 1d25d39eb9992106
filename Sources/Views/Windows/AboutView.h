#pragma once

#include <functional>

#include "Support/StateView.h"
#include "Windows/Entrance.h"

namespace tessel {

class ShortcutCard;
class WindowTheme;

/// The content of the window with what this program is. It enters the first time that it is seen.
class AboutView final : public StateView {
    Q_OBJECT

public:
    /// What the link and the button do.
    struct Actions {
        std::function<void()> openWebsite;
        std::function<void()> close;
    };

    /// `theme` must outlive this object.
    AboutView(AppState& appState, WindowTheme& theme, const Actions& actions);

    /// How the parts come into view.
    Entrance& entrance() { return entrance_; }

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void showState(const AppState& state) override;
    QWidget* makeHeader();
    QWidget* makeFooter(const Actions& actions);

    WindowTheme& theme_;
    ShortcutCard* shortcuts_;
    Entrance entrance_;
    bool hasEntered_ = false;
};

} // namespace tessel
