#pragma once

#include <functional>

#include <QtWidgets/QWidget>

#include "HotKey/HotKeyPreset.h"

namespace tessel {

class WindowTheme;

/// Tells the user, on a desktop without a menu bar, how to open the history and the settings. It does not
/// take the keyboard focus when it comes.
class TrayNoticeView final : public QWidget {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    TrayNoticeView(HotKeyPreset preset, WindowTheme& theme, std::function<void()> openSettings);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    WindowTheme& theme_;
};

/// The notice of a desktop without a menu bar. It owns its window, and goes before `QApplication` does.
struct TrayNoticeWindow {
    std::function<void(HotKeyPreset preset)> show;
    /// Does nothing where there is no such window any more.
    std::function<void()> hide;
};

/// `openSettings` is a button of the window. `theme` must outlive the result.
TrayNoticeWindow trayNoticeWindow(WindowTheme& theme, std::function<void()> openSettings);

} // namespace tessel
