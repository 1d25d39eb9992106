#include "Desktop/ApplicationAdaptor.h"

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

void ApplicationAdaptor::Activate(const QVariantMap& platform_data)
{
    handler_({RemoteCommand::openHistory, startupID(platform_data)});
}

void ApplicationAdaptor::Open(const QStringList& /*uris*/, const QVariantMap& platform_data)
{
    Activate(platform_data);
}

void ApplicationAdaptor::ActivateAction(const QString& action_name, const QVariantList& /*parameter*/,
                                        const QVariantMap& platform_data)
{
    if (const auto command = commandForAction(action_name.toStdString()))
        handler_({*command, startupID(platform_data)});
}

} // namespace tessel
