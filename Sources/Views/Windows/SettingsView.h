#pragma once

#include <functional>

#include "History/QuickClearPolicy.h"
#include "Support/StateView.h"
#include "Support/TextStyle.h"
#include "Windows/WindowLabel.h"

class QHBoxLayout;
class QVBoxLayout;

namespace tessel {

class CheckBox;
class ContentScrollArea;
class PopUpButton;
class PresetRow;
class ScrollIndicatorView;
class Slider;
class WindowTheme;

/// The content of the window with the settings. Each control shows a property of the application's state, and
/// writes to it when its user changes it, and only then.
class SettingsView final : public StateView {
    Q_OBJECT

public:
    /// `close` closes the window. `theme` must outlive this object.
    SettingsView(AppState& appState, WindowTheme& theme, std::function<void()> close);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void showState(const AppState& state) override;
    void showPolicy(QuickClearPolicy policy, double customSeconds);

    /// @name The parts, from the top. Each makes its controls members.
    /// @{
    QWidget* makeSections();
    QWidget* makeLaunchAtLoginCard();
    QWidget* makeKeyboardShortcutCard();
    QWidget* makeQuickClearCard();
    QWidget* makeTransparencyCard();
    QHBoxLayout* makeBottomBar();
    /// @}
    void addPresets();

    WindowLabel* makeLabel(const QString& text, const Text& style, WindowLabel::Color color);
    WindowLabel* makeCaption(const QString& text);

    WindowTheme& theme_;
    std::function<void()> close_;
    ContentScrollArea* sections_ = nullptr;
    ScrollIndicatorView* scrollIndicator_ = nullptr;
    CheckBox* launchAtLogin_ = nullptr;
    PopUpButton* hotKeyPreset_ = nullptr;
    WindowLabel* quickClearValue_ = nullptr;
    PresetRow* presets_ = nullptr;
    WindowLabel* tintValue_ = nullptr;
    Slider* tint_ = nullptr;
};

} // namespace tessel
