#pragma once

#include <map>

#include <QtCore/QObject>

#include "EventMonitors.h"

namespace tessel {

/// Local monitors as a filter of the application's events. Made after `QApplication`, and destroyed before
/// it.
class QtEventMonitors : public EventMonitors, private QObject {
public:
    QtEventMonitors();

    /// Key-down events only; any other mask is refused. The handler sees each press once, before the window
    /// hands it to its focused view; a held key's repetitions are presses too. It sees none while a menu is
    /// open, which has the keys to itself.
    std::optional<EventMonitorToken> addLocalMonitor(std::uint64_t mask, Handler handler) override;
    void removeMonitor(EventMonitorToken token) override;

private:
    bool eventFilter(QObject* object, QEvent* event) override;
    EventOutcome report(const KeyEvent& event) const;

    std::uint64_t lastToken_ = 0;
    std::map<EventMonitorToken, Handler> handlers_;
};

} // namespace tessel
