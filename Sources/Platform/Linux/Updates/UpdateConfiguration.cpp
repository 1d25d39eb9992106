#include "Updates/UpdateConfiguration.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include "Updates/FeedSignature.h"

namespace tessel {

namespace {

constexpr qint64 largestFile = 65'536; ///< Bytes.

std::optional<QUrl> feedAddress(const QJsonValue& value)
{
    const QUrl address(value.toString(), QUrl::StrictMode);
    const bool isUsable = address.isValid() && address.scheme() == QLatin1String("https") &&
                          !address.host().isEmpty() && address.userInfo().isEmpty() && !address.hasFragment();
    return isUsable ? std::optional(address) : std::nullopt;
}

std::optional<QByteArray> publicKey(const QJsonValue& value)
{
    const auto key =
        QByteArray::fromBase64Encoding(value.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return key && (*key).size() == feedKeySize ? std::optional(*key) : std::nullopt;
}

std::optional<UpdateConfiguration> configurationIn(const QJsonObject& object)
{
    const auto address = feedAddress(object.value(QLatin1String("feed")));
    const auto key = publicKey(object.value(QLatin1String("publicKey")));
    const QJsonValue interval = object.value(QLatin1String("interval"));
    const bool isInterval = interval.isUndefined() || (interval.isDouble() && interval.toDouble() >= 0);
    if (!address || !key || !isInterval)
        return std::nullopt;
    return UpdateConfiguration{{*address, *key},
                               interval.toDouble() > 0 ? std::optional(interval.toDouble()) : std::nullopt};
}

} // namespace

std::variant<std::monostate, UpdateConfiguration, BrokenUpdateConfiguration>
readUpdateConfiguration(const QStringList& directories)
{
    for (const QString& directory : directories) {
        QFile file(directory + QStringLiteral("/tessel-clipboard/updates.json"));
        if (!file.exists())
            continue;
        if (!QFileInfo(file).isFile() || file.size() > largestFile || !file.open(QIODevice::ReadOnly))
            return BrokenUpdateConfiguration();
        const auto document = QJsonDocument::fromJson(file.read(largestFile));
        if (const auto configuration = configurationIn(document.object()))
            return *configuration;
        return BrokenUpdateConfiguration();
    }
    return std::monostate();
}

QStringList installedConfigurationDirectories()
{
    const QString listed = qEnvironmentVariable("XDG_CONFIG_DIRS");
    // The same directory may have several names.
    const QString home = QDir(QDir::homePath()).canonicalPath() + QLatin1Char('/');
    QStringList directories;
    for (const QString& entry :
         (listed.isEmpty() ? QStringLiteral("/etc/xdg") : listed).split(QLatin1Char(':'))) {
        const QString directory = QDir::isAbsolutePath(entry) ? QDir(entry).canonicalPath() : QString();
        if (!directory.isEmpty() && !(directory + QLatin1Char('/')).startsWith(home))
            directories.append(directory);
    }
    return directories;
}

} // namespace tessel
