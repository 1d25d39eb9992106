#pragma once

#include <QtWidgets/QWidget>

#include "Support/CardPicture.h"

class QLabel;
class QVBoxLayout;

namespace tessel {

class WindowTheme;

/// The card that lists the keyboard shortcuts.
class ShortcutCard final : public QWidget {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    explicit ShortcutCard(const WindowTheme& theme);

    /// The keys that open the history.
    void setHotKey(const QString& keys);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Returns the label with the keys.
    QLabel* addRow(const QString& symbol, const QString& title, const QString& keys);

    const WindowTheme& theme_;
    CardPicture card_;
    QVBoxLayout* rows_;
    QLabel* hotKey_;
};

} // namespace tessel
