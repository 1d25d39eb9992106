#include "Updates/InstalledUpdateSource.h"

#include <QtCore/QSysInfo>

#include <utility>

#include "Updates/DownloadProcess.h"
#include "Updates/MisconfiguredUpdateFeed.h"
#include "Updates/UpdateConfiguration.h"

namespace tessel {

namespace {

std::string kernelNumbers()
{
    const std::string version = QSysInfo::kernelVersion().toStdString();
    return version.substr(0, version.find_first_not_of("0123456789."));
}

std::shared_ptr<UpdateFeed> feedAt(const SignedUpdateFeed::Source& source)
{
    return std::make_shared<SignedUpdateFeed>(
        source, [](const QUrl& address, qint64 largestSize, std::function<void(DownloadResult)> done) {
            return downloadByProcess(downloadProgramPath(), address, largestSize, std::move(done));
        });
}

} // namespace

UpdateSource installedUpdateSource()
{
    const auto configuration = readUpdateConfiguration(installedConfigurationDirectories());
    UpdateSource source{.feed = nullptr, .checkInterval = std::nullopt, .systemVersion = kernelNumbers()};
    if (const auto* configured = std::get_if<UpdateConfiguration>(&configuration)) {
        source.feed = feedAt(configured->source);
        source.checkInterval = configured->interval;
    }
    if (std::holds_alternative<BrokenUpdateConfiguration>(configuration))
        source.feed = std::make_shared<MisconfiguredUpdateFeed>();
    return source;
}

} // namespace tessel
