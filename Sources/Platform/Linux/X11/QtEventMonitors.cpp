#include "X11/QtEventMonitors.h"

#include <utility>
#include <vector>

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

#include "VirtualKeyEvent.h"

namespace tessel {

QtEventMonitors::QtEventMonitors()
{
    if (auto* application = QCoreApplication::instance())
        application->installEventFilter(this);
}

std::optional<EventMonitorToken> QtEventMonitors::addLocalMonitor(std::uint64_t mask, Handler handler)
{
    if (mask != keyDownMask || !handler)
        return std::nullopt;
    const auto token = EventMonitorToken{++lastToken_};
    handlers_[token] = std::move(handler);
    return token;
}

void QtEventMonitors::removeMonitor(EventMonitorToken token)
{
    handlers_.erase(token);
}

bool QtEventMonitors::eventFilter(QObject* object, QEvent* event)
{
    // A press arrives at the window first, which then passes the same event on to its focused view and that
    // view's parents.
    if (event->type() != QEvent::KeyPress || !object->isWindowType() || handlers_.empty())
        return false;
    if (QApplication::activePopupWidget() != nullptr)
        return false;
    return report(virtualKeyEvent(static_cast<const QKeyEvent&>(*event))) == EventOutcome::consumed;
}

EventOutcome QtEventMonitors::report(const KeyEvent& event) const
{
    // A handler may remove itself, or another one.
    std::vector<EventMonitorToken> tokens;
    for (const auto& [token, handler] : handlers_)
        tokens.push_back(token);
    for (const EventMonitorToken token : tokens) {
        const auto found = handlers_.find(token);
        if (found == handlers_.end())
            continue;
        const Handler handler = found->second;
        if (handler(event) == EventOutcome::consumed)
            return EventOutcome::consumed;
    }
    return EventOutcome::passOn;
}

} // namespace tessel
