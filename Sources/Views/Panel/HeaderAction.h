#pragma once

#include <functional>

#include <QtWidgets/QAbstractButton>

namespace tessel {

struct PanelFonts;

/// A pill button of the panel's header. It never takes the keyboard focus.
class HeaderAction : public QAbstractButton {
    Q_OBJECT

public:
    HeaderAction(const QString& title, const PanelFonts& fonts, std::function<void()> action,
                 QWidget* parent);

    QSize sizeHint() const override { return size_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int ascent_;
    QSize size_;
};

} // namespace tessel
