#pragma once

#include <QtWidgets/QLabel>

namespace tessel {

struct TextStyle;

/// A plain text of the panel, white at an opacity.
class PanelLabel final : public QLabel {
    Q_OBJECT

public:
    enum class Purpose { text, heading };

    PanelLabel(const QString& text, const TextStyle& style, double opacity, QWidget* parent,
               Purpose purpose = Purpose::text);

    Purpose purpose() const { return purpose_; }

private:
    Purpose purpose_;
};

} // namespace tessel
