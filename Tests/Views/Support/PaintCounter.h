#pragma once

#include <QtCore/QEvent>
#include <QtWidgets/QWidget>

namespace tessel::test {

/// Counts how often a widget is painted.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    int count() const { return count_; }

private:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count_ = 0;
};

} // namespace tessel::test
