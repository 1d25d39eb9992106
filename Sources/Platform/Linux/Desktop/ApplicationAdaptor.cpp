#include "Desktop/ApplicationAdaptor.h"

#include <QtDBus/QDBusConnection>

#include <utility>

#include "Desktop/RemoteAction.h"
#include "Desktop/StartupIDKeys.h"

namespace tessel {

namespace {

std::string startupID(const QVariantMap& platformData)
{
    for (const QLatin1StringView key : startupIDKeys) {
        if (const QString found = platformData.value(key).toString(); !found.isEmpty())
            return found.toStdString();
    }
    return {};
}

} // namespace

ApplicationAdaptor::ApplicationAdaptor(QObject* parent, Handler handler)
    : QDBusAbstractAdaptor(parent)
    , handler_(std::move(handler))
{}

void ApplicationAdaptor::Activate(const QVariantMap& platform_data, const QDBusMessage& call)
{
    pass({RemoteCommand::openHistory, startupID(platform_data)}, call);
}

void ApplicationAdaptor::Open(const QStringList& /*uris*/, const QVariantMap& platform_data,
                              const QDBusMessage& call)
{
    Activate(platform_data, call);
}

void ApplicationAdaptor::ActivateAction(const QString& action_name, const QVariantList& /*parameter*/,
                                        const QVariantMap& platform_data, const QDBusMessage& call)
{
    if (const auto command = commandForAction(action_name.toStdString()))
        pass({*command, startupID(platform_data)}, call);
}

void ApplicationAdaptor::pass(const RemoteRequest& request, const QDBusMessage& call)
{
    if (handler_(request) == Obedience::obeyed)
        return;
    call.setDelayedReply(true); // Ours is the answer.
    QDBusConnection::sessionBus().send(
        call.createErrorReply(isEndingError, QStringLiteral("Tessel Clipboard is ending.")));
}

} // namespace tessel
