#include "Windows/ChromelessWindow.h"

#include <QtWidgets/QVBoxLayout>

namespace tessel {

ChromelessWindow::ChromelessWindow(const QString& title, QWidget* view, QSize size, const WindowTheme&)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowTitle(title);
    setFixedSize(size);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view, 0, Qt::AlignVCenter);
}

} // namespace tessel
