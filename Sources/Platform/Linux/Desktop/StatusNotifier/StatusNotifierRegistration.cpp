#include "Desktop/StatusNotifier/StatusNotifierRegistration.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusVariant>

#include <limits>
#include <utility>

namespace tessel {

namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString watcherInterface = watcherService;

/// A panel that is starting may take its time, and nobody waits for it. If it goes the bus says so.
constexpr int noTimeout = std::numeric_limits<int>::max();

QDBusPendingCall ask(const QDBusConnection& bus, const QString& interfaceName, const QString& method,
                     const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(watcherService, watcherPath, interfaceName, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return bus.asyncCall(call, noTimeout);
}

} // namespace

StatusNotifierRegistration::StatusNotifierRegistration(const QDBusConnection& bus)
    : bus_(bus)
{
    names_.setConnection(bus_);
    names_.addWatchedService(watcherService);
    connect(&names_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& /*name*/, const QString& /*oldOwner*/, const QString& newOwner) {
                watcherDidChange(newOwner);
            });
    // With the sender's name the toolkit would ask the bus for its owner, and wait for the answer.
    const QString anySender;
    for (const auto& change :
         {QStringLiteral("StatusNotifierHostRegistered"), QStringLiteral("StatusNotifierHostUnregistered")})
        bus_.connect(anySender, watcherPath, watcherInterface, change, this, SLOT(hostsDidChange()));
    bus_.connect(anySender, QStringLiteral("/org/freedesktop/DBus/Local"),
                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                 SLOT(busDidGo()));
    registerItem();
    askForHost();
}

void StatusNotifierRegistration::watcherDidChange(const QString& newOwner)
{
    forgetWatcher();
    if (!newOwner.isEmpty()) {
        registerItem();
        askForHost();
    }
    update();
}

/// Anybody can send this signal; what counts is the watcher's answer. One that has refused the item may take
/// it now.
void StatusNotifierRegistration::hostsDidChange()
{
    askForHost();
    if (!isRegistered_ && !registration_)
        registerItem();
}

void StatusNotifierRegistration::busDidGo()
{
    forgetWatcher();
    update();
}

void StatusNotifierRegistration::registerItem()
{
    // Watchers take a well-known name, a unique one, or a path of the sender's; the second needs no further
    // call.
    registration_ = std::make_unique<QDBusPendingCallWatcher>(
        ask(bus_, watcherInterface, QStringLiteral("RegisterStatusNotifierItem"), {bus_.baseService()}));
    connect(registration_.get(), &QDBusPendingCallWatcher::finished, this,
            &StatusNotifierRegistration::registrationDidEnd);
}

void StatusNotifierRegistration::askForHost()
{
    hostAnswer_ = std::make_unique<QDBusPendingCallWatcher>(
        ask(bus_, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
            {watcherInterface, QStringLiteral("IsStatusNotifierHostRegistered")}));
    connect(hostAnswer_.get(), &QDBusPendingCallWatcher::finished, this,
            &StatusNotifierRegistration::hostAnswerDidCome);
}

void StatusNotifierRegistration::registrationDidEnd()
{
    isRegistered_ = !registration_->isError();
    registration_.release()->deleteLater(); // It is telling us at this moment.
    update();
}

void StatusNotifierRegistration::hostAnswerDidCome()
{
    const QDBusPendingReply<QDBusVariant> reply = *hostAnswer_;
    hostAnswer_.release()->deleteLater();
    const QVariant answer = reply.isError() ? QVariant() : reply.value().variant();
    hasHost_ = answer.typeId() == QMetaType::Bool && answer.toBool();
    update();
}

void StatusNotifierRegistration::forgetWatcher()
{
    registration_.reset();
    hostAnswer_.reset();
    isRegistered_ = false;
    hasHost_ = false;
}

void StatusNotifierRegistration::update()
{
    const bool isShown = isRegistered_ && hasHost_;
    if (std::exchange(isShown_, isShown) != isShown)
        emit isShownDidChange();
}

} // namespace tessel
