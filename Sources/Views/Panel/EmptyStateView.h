#pragma once

#include <QtWidgets/QWidget>

class QLabel;

namespace tessel {

struct PanelFonts;

/// What the panel shows in place of a list without entries.
class EmptyStateView : public QWidget {
    Q_OBJECT

public:
    /// `fonts` must outlive this object.
    EmptyStateView(const PanelFonts& fonts, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    const PanelFonts& fonts_;
    QLabel* title_;
    QLabel* hint_;
};

} // namespace tessel
