#include "Windows/ContentScrollArea.h"

#include <QtWidgets/QApplication>

namespace tessel {

ContentScrollArea::ContentScrollArea(QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    viewport()->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        constexpr int margin = 4; // Points.
        if (now != nullptr && widget() != nullptr && widget()->isAncestorOf(now))
            ensureWidgetVisible(now, margin, margin);
    });
}

void ContentScrollArea::setContent(QWidget* content)
{
    setWidget(content);
    content->setAutoFillBackground(false); // The toolkit has just turned it on.
}

} // namespace tessel
