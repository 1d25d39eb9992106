#include "Desktop/JSONDefaultsStore.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QStandardPaths>

#include <utility>

namespace tessel {

namespace {

/// Four settings take a few hundred bytes. A larger file is not ours.
constexpr qint64 largestFile = 1'048'576;

QString keyText(std::string_view key)
{
    return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

/// A name beside `path` that is not taken.
QString nameAside(const QString& path)
{
    const QString first = path + QStringLiteral(".damaged");
    QString name = first;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = first + QLatin1Char('-') + QString::number(number);
    return name;
}

/// The object in the file, or none when there is no readable file or it is not a JSON object.
std::optional<QJsonObject> readObject(QFile& file)
{
    if (file.size() > largestFile)
        return std::nullopt;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return std::nullopt;
    return document.object();
}

/// The values in the file at `path`. A damaged file is moved aside.
QJsonObject readValues(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    if (const auto object = readObject(file))
        return *object;
    file.close();
    QFile::rename(path, nameAside(path));
    return {};
}

/// The file's content with the changes in it.
QByteArray merged(QJsonObject values, const QJsonObject& changes)
{
    for (auto change = changes.begin(); change != changes.end(); ++change)
        values.insert(change.key(), change.value());
    return QJsonDocument(values).toJson(QJsonDocument::Indented);
}

} // namespace

QString JSONDefaultsStore::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/tessel-clipboard/settings.json");
}

QString JSONDefaultsStore::statePath()
{
    // The toolkit knows this directory from version 6.7 on.
    QString directory = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(directory))
        directory = QDir::homePath() + QStringLiteral("/.local/state");
    return directory + QStringLiteral("/tessel-clipboard/state.json");
}

JSONDefaultsStore::JSONDefaultsStore(const QString& path, WriteFile writeFile)
    : values_(readValues(path))
    , writer_([path, writeFile = std::move(writeFile)](const QJsonObject& changes) {
        writeFile(path, merged(readValues(path), changes));
    })
{}

QJsonValue JSONDefaultsStore::value(std::string_view key) const
{
    return values_.value(keyText(key));
}

std::optional<std::string> JSONDefaultsStore::string(std::string_view key) const
{
    const QJsonValue stored = value(key);
    return stored.isString() ? std::optional(stored.toString().toStdString()) : std::nullopt;
}

std::optional<double> JSONDefaultsStore::number(std::string_view key) const
{
    const QJsonValue stored = value(key);
    return stored.isDouble() ? std::optional(stored.toDouble()) : std::nullopt;
}

void JSONDefaultsStore::setString(std::string_view key, std::string_view value)
{
    set(key, keyText(value));
}

void JSONDefaultsStore::setDouble(std::string_view key, double value)
{
    set(key, value);
}

void JSONDefaultsStore::set(std::string_view key, const QJsonValue& value)
{
    values_.insert(keyText(key), value);
    writer_.set(keyText(key), value);
}

} // namespace tessel
