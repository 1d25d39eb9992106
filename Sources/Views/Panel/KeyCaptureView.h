#pragma once

#include <functional>

#include <QtWidgets/QWidget>

namespace tessel {

/// Draws nothing, holds the panel's keyboard focus, and turns key presses into the panel's actions. What the
/// keys move about in is its child.
class KeyCaptureView : public QWidget {
    Q_OBJECT

public:
    explicit KeyCaptureView(QWidget* parent = nullptr);

    /// An absent action swallows its keys.
    std::function<void()> onUp;
    std::function<void()> onDown;
    std::function<void()> onEnter;
    std::function<void()> onEscape;
    std::function<void()> onDelete;
    std::function<void()> onPinToggle;

    /// Takes the focus within its window on the next turn of the main loop, unless it has it or is in no
    /// window.
    void ensureFocus();

signals:
    /// The keyboard focus has come, or has come back from a menu.
    void focusDidArrive();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;

private:
    bool isInWindow() const { return parentWidget() != nullptr; }
};

} // namespace tessel
