#include "StatusNotifierWatcherStandIn.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tessel {

namespace {

const QString connectionName = QStringLiteral("status-notifier-watcher");
const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");

} // namespace

StatusNotifierWatcherStandIn::StatusNotifierWatcherStandIn(const QString& busAddress)
    : bus_(QDBusConnection::connectToBus(busAddress, connectionName))
{
    bus_.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals |
                            QDBusConnection::ExportAllProperties);
    owners_.setConnection(bus_);
    owners_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&owners_, &QDBusServiceWatcher::serviceUnregistered, this, &StatusNotifierWatcherStandIn::forget);
}

StatusNotifierWatcherStandIn::~StatusNotifierWatcherStandIn()
{
    QDBusConnection::disconnectFromBus(connectionName);
}

void StatusNotifierWatcherStandIn::start()
{
    if (!bus_.registerService(watcherName))
        throw std::runtime_error("the watcher's name cannot be had");
}

void StatusNotifierWatcherStandIn::stop()
{
    bus_.unregisterService(watcherName);
    items_.clear();
    emit itemsDidChange();
}

void StatusNotifierWatcherStandIn::setHost(bool hasHost)
{
    hasHost_ = hasHost;
    if (hasHost)
        emit StatusNotifierHostRegistered();
    else
        emit StatusNotifierHostUnregistered();
}

void StatusNotifierWatcherStandIn::answerAtLast()
{
    conduct_ = Conduct::good;
    for (const QDBusMessage& call : std::exchange(unanswered_, {})) {
        if (call.member() == QStringLiteral("RegisterStatusNotifierItem"))
            add({call.service(), call.arguments().value(0).toString()});
        bus_.send(call.createReply(QVariantList()));
    }
}

void StatusNotifierWatcherStandIn::RegisterStatusNotifierItem(const QString& service)
{
    ++registrations_;
    if (conduct_ == Conduct::refuses)
        return sendErrorReply(QDBusError::Failed, QStringLiteral("The menu bar is full."));
    if (conduct_ == Conduct::isSilent) {
        setDelayedReply(true);
        unanswered_.push_back(message());
        return;
    }
    // Either a path of the sender's, or a service with the item at the usual path.
    if (service.startsWith(QLatin1Char('/')))
        add({message().service(), service});
    else
        add({service, QStringLiteral("/StatusNotifierItem")});
}

void StatusNotifierWatcherStandIn::RegisterStatusNotifierHost(const QString& /*service*/)
{
    setHost(true);
}

bool StatusNotifierWatcherStandIn::answerHost()
{
    ++questions_;
    return hasHost_;
}

QStringList StatusNotifierWatcherStandIn::itemNames() const
{
    QStringList names;
    for (const RegisteredStatusItem& item : items_)
        names.push_back(item.service + item.path);
    return names;
}

void StatusNotifierWatcherStandIn::add(const RegisteredStatusItem& item)
{
    if (std::find(items_.begin(), items_.end(), item) != items_.end())
        return;
    owners_.addWatchedService(item.service);
    items_.push_back(item);
    emit StatusNotifierItemRegistered(item.service + item.path);
    emit itemsDidChange();
}

void StatusNotifierWatcherStandIn::forget(const QString& service)
{
    std::erase_if(items_, [&](const auto& item) { return item.service == service; });
    owners_.removeWatchedService(service);
    emit StatusNotifierItemUnregistered(service);
    emit itemsDidChange();
}

} // namespace tessel
