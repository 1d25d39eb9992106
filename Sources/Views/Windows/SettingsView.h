#pragma once

#include <functional>

#include "Support/StateView.h"
#include "Windows/Controls/ThemedLabel.h"

class QHBoxLayout;
class QVBoxLayout;

namespace tessel {

class CheckBox;
class ContentScrollArea;
class PopUpButton;
class PresetRow;
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

private:
    void showState(const AppState& state) override;

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

    ThemedLabel* makeLabel(const QString& text, const Text& style, ThemedLabel::Color color);
    ThemedLabel* makeCaption(const QString& text);

    WindowTheme& theme_;
    std::function<void()> close_;
    ContentScrollArea* sections_ = nullptr;
    CheckBox* launchAtLogin_ = nullptr;
    PopUpButton* hotKeyPreset_ = nullptr;
    ThemedLabel* quickClearValue_ = nullptr;
    PresetRow* presets_ = nullptr;
    ThemedLabel* tintValue_ = nullptr;
    Slider* tint_ = nullptr;
};

} // namespace tessel
