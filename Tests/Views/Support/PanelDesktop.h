#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QtCore/Qt>

#include "Fakes/FakeDesktop.h"
#include "Panel/ClipboardPanelController.h"
#include "Panel/ClipboardPanelView.h"
#include "Panel/ClipboardPanelWindow.h"
#include "Panel/KeyCaptureView.h"
#include "Support/FakeAppearance.h"
#include "Support/FakeNativeWindows.h"
#include "Windows/WindowTheme.h"

class QImage;
class QLabel;
class QWidget;

namespace tessel::test {

/// The desktop of fakes with the program's real windows on it.
class PanelDesktop : public FakeDesktop {
public:
    /// Starts the program.
    PanelDesktop();
    /// The program ends, and what it has left to the main loop is done.
    ~PanelDesktop();
    PanelDesktop(const PanelDesktop&) = delete;
    PanelDesktop& operator=(const PanelDesktop&) = delete;
    /// Starts it anew, with what a test has changed on the desktop.
    void relaunch();

    /// Opens the panel, and waits until it has been drawn. Its controller must not exist yet or be hidden.
    void openPanel();
    void copyAll(const std::vector<std::string>& texts);
    void pin(std::string_view text);

    /// @name The open panel. Only while there is one.
    /// @{
    ClipboardPanelController& controller() const;
    ClipboardPanelWindow& window() const { return controller().window(); }
    ClipboardPanelView& view() const { return *window().contentView(); }
    ClipboardListView& list() const { return view().list(); }
    /// The middle of an entry's row, in the list.
    QPoint rowCenter(std::string_view text) const;
    /// The text of the selected entry; "" when none is, or it is gone.
    std::string selectedText() const;
    /// The texts that can be seen outside the list.
    std::vector<std::string> visibleLabels() const;
    /// @}

    /// A key goes down in the view that has the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// The pointer moves to a place in the list.
    void movePointer(const QPoint& place);
    void click(std::string_view text);
    void doubleClick(std::string_view text);
    /// Throws where no enabled button has that title.
    void clickButton(std::string_view title);

    FakeNativeWindows nativeWindows;
    FakeAppearance appearance;
    WindowTheme theme{appearance};
};

/// What a widget and those in it draw, in device pixels, over nothing.
QImage drawn(QWidget& widget);

/// Runs what the main loop has to do now.
void runMainLoop();

/// Runs the main loop until `condition` holds. False: it did not within a minute.
bool waitUntil(const std::function<bool()>& condition);

} // namespace tessel::test
