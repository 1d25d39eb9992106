#pragma once

#include <QtWidgets/QWidget>

#include <functional>

#include "Updates/UpdateUserDriver.h"

class QAbstractButton;
class QBoxLayout;

namespace tessel {

class ReleaseNotesView;
class WindowTheme;

/// The window that shows one status of a look for updates, and what can be answered. It has a title bar;
/// closing it, or Escape, dismisses what it shows. It does not go by itself.
class UpdateWindow final : public QWidget {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    explicit UpdateWindow(WindowTheme& theme);

    /// Shows this in place of what was shown.
    void showStatus(const UpdateStatus& status, std::function<void(UpdateAnswer)> answer);
    /// From now on Return presses the prominent button. A window that nobody has asked for must not take for
    /// an answer what its user types elsewhere.
    void acceptReturn() { acceptsReturn_ = true; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    /// `width` is that of the texts, in points.
    void addTexts(QBoxLayout& column, const UpdateStatus& status, int width);
    QWidget* makeButtons(const UpdateStatus& status);
    void addButton(QBoxLayout& row, const QString& title, UpdateAnswer answer);
    void addProminentButton(QBoxLayout& row, const QString& title, UpdateAnswer answer);
    void add(QBoxLayout& row, QAbstractButton& button, UpdateAnswer answer);
    void reply(UpdateAnswer answer);

    WindowTheme& theme_;
    std::function<void(UpdateAnswer)> answer_;
    QWidget* content_ = nullptr;
    ReleaseNotesView* notes_ = nullptr;    ///< Null: there are none.
    QAbstractButton* prominent_ = nullptr; ///< Null: there is none.
    bool acceptsReturn_ = false;
};

} // namespace tessel
