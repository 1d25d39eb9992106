#include "Desktop/SessionBusControl.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusError>
#include <QtDBus/QDBusMessage>

#include <chrono>
#include <thread>
#include <utility>

#include "Desktop/ApplicationAdaptor.h"
#include "Desktop/RemoteAction.h"
#include "Desktop/StartupIDKeys.h"

namespace tessel {

namespace {

constexpr QLatin1StringView serviceName("org.tesselclipboard.TesselClipboard");
constexpr QLatin1StringView objectPath("/org/tesselclipboard/TesselClipboard");
constexpr QLatin1StringView interfaceName("org.freedesktop.Application");

/// A running program answers within a frame. One that does not is hung, and the caller wants to hear of it.
constexpr int answerTimeout = 5000; // Milliseconds.

/// A connection for one call. The shared one reads no calls before the loop of the application object that it
/// was made under has run. One that was made to ask whether the program runs would never read any.
class OwnConnection {
public:
    OwnConnection() = default;
    ~OwnConnection() { QDBusConnection::disconnectFromBus(name_); }
    OwnConnection(const OwnConnection&) = delete;
    OwnConnection& operator=(const OwnConnection&) = delete;

    QDBusConnection& bus() { return bus_; }

private:
    QString name_ = QStringLiteral("tessel-clipboard-request");
    QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_);
};

/// The connection of the running program; empty where it does not run.
QString ownerOfTheName(const QDBusConnection& bus)
{
    return bus.interface()->serviceOwner(serviceName).value();
}

QDBusMessage callFor(const RemoteRequest& request, const QString& receiver)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(receiver, objectPath, interfaceName, QStringLiteral("ActivateAction"));
    const std::string_view action = actionName(request.command);
    QVariantMap platformData;
    if (!request.startupID.empty()) {
        const QString startupID = QString::fromStdString(request.startupID);
        for (const QLatin1StringView key : startupIDKeys)
            platformData.insert(key, startupID);
    }
    call << QString::fromUtf8(action.data(), static_cast<qsizetype>(action.size())) << QVariantList()
         << platformData;
    return call;
}

/// For as long as an answer is waited for, at most.
void waitUntilOwnerChanges(const QDBusConnection& bus, const QString& owner)
{
    constexpr auto interval = std::chrono::milliseconds(10);
    const QDeadlineTimer end(answerTimeout);
    while (!end.hasExpired() && ownerOfTheName(bus) == owner)
        std::this_thread::sleep_for(interval);
}

} // namespace

/// The exported object. Its adaptor takes the calls.
class SessionBusControl::Object : public QObject {};

SessionBusControl::SessionBusControl() = default;

SessionBusControl::~SessionBusControl()
{
    if (!object_)
        return;
    // The name goes before the object: whoever finds no object finds that nobody has the name. Nobody waits
    // for the bus's answer.
    QDBusMessage release =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ReleaseName"));
    release << QString(serviceName);
    QDBusConnection::sessionBus().send(release);
}

Delivery SessionBusControl::send(const RemoteRequest& request)
{
    OwnConnection connection;
    if (!connection.bus().isConnected())
        return Delivery::noChannel;

    const QString owner = ownerOfTheName(connection.bus());
    if (owner.isEmpty())
        return Delivery::nobodyListens;
    const QDBusMessage answer = connection.bus().call(callFor(request, owner), QDBus::Block, answerTimeout);
    if (answer.type() == QDBusMessage::ReplyMessage)
        return Delivery::delivered;
    // It says that it is ending, or its object is gone already, perhaps a moment before its name.
    if (QDBusError(answer).type() != QDBusError::NoReply)
        waitUntilOwnerChanges(connection.bus(), owner);
    // Without an answer it has ended meanwhile, or it is hung.
    return ownerOfTheName(connection.bus()) == owner ? Delivery::noAnswer : Delivery::nobodyListens;
}

Claim SessionBusControl::claim(Handler handler)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Claim::noChannel;

    // The object comes before the name: whoever sees the name can call it.
    auto object = std::make_unique<Object>();
    new ApplicationAdaptor(object.get(), std::move(handler)); // Owned by the object.
    if (!bus.registerObject(objectPath, object.get()))
        return Claim::noChannel;
    const auto reply = bus.interface()->registerService(serviceName);
    if (!reply.isValid() || reply.value() != QDBusConnectionInterface::ServiceRegistered) {
        bus.unregisterObject(objectPath);
        return reply.isValid() ? Claim::takenByAnother : Claim::noChannel;
    }
    object_ = std::move(object);
    return Claim::granted;
}

} // namespace tessel
