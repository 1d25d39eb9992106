#include "PortalStandIn.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMetaType>

#include <stdexcept>
#include <utility>

namespace tessel {

namespace {

const QString connectionName = QStringLiteral("portal");

} // namespace

PortalStandIn::PortalStandIn(const QString& busAddress)
    : bus_(QDBusConnection::connectToBus(busAddress, connectionName))
{
    qDBusRegisterMetaType<Settings>();
    bus_.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
}

PortalStandIn::~PortalStandIn()
{
    QDBusConnection::disconnectFromBus(connectionName);
}

void PortalStandIn::hold(const QString& group, const QString& key, const QVariant& value)
{
    settings_[group][key] = value;
}

void PortalStandIn::change(const QString& group, const QString& key, const QVariant& value)
{
    hold(group, key, value);
    emit SettingChanged(group, key, QDBusVariant(value));
}

void PortalStandIn::start()
{
    if (!bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop")))
        throw std::runtime_error("the portal's name cannot be had");
}

void PortalStandIn::giveAnswers()
{
    keepsAnswers_ = false;
    for (const QDBusMessage& answer : std::exchange(keptAnswers_, {}))
        bus_.send(answer);
}

QVariant PortalStandIn::color(double red, double green, double blue)
{
    QDBusArgument argument;
    argument.beginStructure();
    argument << red << green << blue;
    argument.endStructure();
    return QVariant::fromValue(argument);
}

PortalStandIn::Settings PortalStandIn::ReadAll(const QStringList& namespaces)
{
    ++requests_;
    Settings answer;
    for (const QString& group : namespaces) {
        if (settings_.contains(group))
            answer[group] = settings_[group];
    }
    if (talksNonsense_) {
        setDelayedReply(true);
        bus_.send(message().createReply(QStringLiteral("nonsense")));
    }
    if (keepsAnswers_) {
        setDelayedReply(true);
        keptAnswers_.push_back(message().createReply(QVariant::fromValue(answer)));
    }
    return answer;
}

} // namespace tessel
