#pragma once

#include <QtWidgets/QWidget>

#include "Support/CardPicture.h"

class QVBoxLayout;

namespace tessel {

class WindowTheme;

/// A card with a section of the settings: its content, one below the other.
class SectionCard final : public QWidget {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    explicit SectionCard(const WindowTheme& theme, QWidget* parent = nullptr);

    QVBoxLayout& content() const { return *content_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const WindowTheme& theme_;
    CardPicture card_;
    QVBoxLayout* content_;
};

} // namespace tessel
