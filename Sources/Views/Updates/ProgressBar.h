#pragma once

#include <QtCore/QBasicTimer>
#include <QtCore/QElapsedTimer>
#include <QtWidgets/QProgressBar>

namespace tessel {

class WindowTheme;

/// Says that something is under way, and not how far it is. It moves while it can be seen, and rests where
/// the user wants nothing to move.
class ProgressBar final : public QProgressBar {
    Q_OBJECT

public:
    /// `theme` must outlive this object.
    explicit ProgressBar(const WindowTheme& theme);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    const WindowTheme& theme_;
    QBasicTimer frames_;
    QElapsedTimer shown_;
};

} // namespace tessel
