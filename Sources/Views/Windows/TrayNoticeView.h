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

/// Makes the notice of a desktop without a menu bar. Calling the result shows the window, in which
/// `openSettings` is a button. The result owns that window: it goes before `QApplication` does.
std::function<void(HotKeyPreset preset)> trayNoticeWindow(WindowTheme& theme,
                                                          std::function<void()> openSettings);

} // namespace tessel
