#include "X11/Selections/ToolkitSilence.h"

#include <utility>

#include <QString>
#include <qlogging.h>

namespace tessel {

namespace {

thread_local bool isSilent = false;
QtMessageHandler previousHandler = nullptr;

void passOn(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!isSilent && previousHandler)
        previousHandler(type, context, message);
}

} // namespace

ToolkitSilence::ToolkitSilence()
    : wasSilent_(std::exchange(isSilent, true))
{}

ToolkitSilence::~ToolkitSilence()
{
    isSilent = wasSilent_;
}

void ToolkitSilence::prepare()
{
    static const bool isInstalled = [] {
        previousHandler = qInstallMessageHandler(&passOn);
        return true;
    }();
    static_cast<void>(isInstalled);
}

} // namespace tessel
