#pragma once

#include <functional>
#include <vector>

#include "Windows/ContentScrollArea.h"

class QHBoxLayout;

namespace tessel {

class PushButton;
class WindowTheme;

/// A row of small buttons, one for each choice; to assistive programs they are radio buttons. It scrolls
/// sideways without indicators; the arrow keys go from button to button.
class PresetRow final : public ContentScrollArea {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    explicit PresetRow(const WindowTheme& theme, QWidget* parent = nullptr);

    /// Adds a button at the end, which runs `choose`.
    void addChoice(const QString& title, const std::function<void()>& choose);
    /// Shows whether a choice, counted from 0, is the current one.
    void setCurrent(std::size_t choice, bool isCurrent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// False: there is no button further on.
    bool moveFocus(int distance);
    /// Scrolls towards the row's end, in points. False: it is there already.
    bool scrollBy(int distance);

    const WindowTheme& theme_;
    QHBoxLayout* row_;
    std::vector<PushButton*> buttons_;
};

} // namespace tessel
