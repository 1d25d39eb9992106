#include "Desktop/SessionBusControl.h"

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>

#include <utility>

#include "Desktop/ApplicationAdaptor.h"
#include "Desktop/RemoteAction.h"

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

} // namespace

/// The exported object. Its adaptor takes the calls.
class SessionBusControl::Object : public QObject {};

SessionBusControl::SessionBusControl() = default;
SessionBusControl::~SessionBusControl() = default;

Delivery SessionBusControl::send(const RemoteRequest& request)
{
    OwnConnection connection;
    if (!connection.bus().isConnected())
        return Delivery::noChannel;

    QDBusMessage call = QDBusMessage::createMethodCall(serviceName, objectPath, interfaceName,
                                                       QStringLiteral("ActivateAction"));
    const std::string_view action = actionName(request.command);
    QVariantMap platformData;
    if (!request.startupID.empty())
        platformData.insert(QStringLiteral("desktop-startup-id"), QString::fromStdString(request.startupID));
    call << QString::fromUtf8(action.data(), static_cast<qsizetype>(action.size())) << QVariantList()
         << platformData;
    call.setAutoStartService(false);
    const QDBusMessage answer = connection.bus().call(call, QDBus::Block, answerTimeout);
    return answer.type() == QDBusMessage::ReplyMessage ? Delivery::delivered : Delivery::nobodyListens;
}

Claim SessionBusControl::claim(std::function<void(const RemoteRequest&)> handler)
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
