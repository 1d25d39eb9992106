#pragma once

#include "Windows/WindowLabel.h"

namespace tessel {

/// The name of a key, or of a combination of keys, on a ground of its own.
class KeyLabel final : public WindowLabel {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    KeyLabel(const QString& keys, const WindowTheme& theme);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const WindowTheme& theme_;
};

} // namespace tessel
