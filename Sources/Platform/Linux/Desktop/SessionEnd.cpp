#include "Desktop/SessionEnd.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QSessionManager>

#include <utility>

namespace tessel {

SessionEnd::SessionEnd(std::function<void()> requested)
    : requested_(std::move(requested))
{
    qApp->installEventFilter(this);
    connect(
        qApp, &QGuiApplication::saveStateRequest, this,
        [](QSessionManager& manager) { manager.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != qApp || event->type() != QEvent::Quit)
        return QObject::eventFilter(watched, event);
    // The toolkit would ask every window to close, and stay when one of them refuses.
    requested_();
    return true;
}

} // namespace tessel
