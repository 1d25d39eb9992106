#pragma once

#include <QtWidgets/QWidget>

#include "Support/CardPicture.h"

class QVBoxLayout;

namespace tessel {

class WindowTheme;

/// In points; those of the settings' sections where nothing else is said.
struct CardMeasures {
    int padding = 12;
    int spacing = 8;
    double cornerRadius = 11;
};

/// A card with a section of a window: its content, one below the other.
class SectionCard : public QWidget {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    explicit SectionCard(const WindowTheme& theme, const CardMeasures& measures = {});

    /// What the card contains, to which more is added at the end.
    QVBoxLayout& content() const { return *content_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const WindowTheme& theme_;
    CardPicture card_;
    QVBoxLayout* content_;
};

} // namespace tessel
