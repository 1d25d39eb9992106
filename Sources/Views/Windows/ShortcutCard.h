#pragma once

#include "Windows/SectionCard.h"

class QLabel;

namespace tessel {

class WindowTheme;

/// The card that lists the keyboard shortcuts.
class ShortcutCard final : public SectionCard {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    explicit ShortcutCard(const WindowTheme& theme);

    /// The keys that open the history.
    void setHotKey(const QString& keys);

private:
    /// Returns the label with the keys.
    QLabel* addRow(const QString& symbol, const QString& title, const QString& keys);

    const WindowTheme& theme_;
    QLabel* hotKey_;
};

} // namespace tessel
