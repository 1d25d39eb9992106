#include "Desktop/AutostartLoginItem.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

#include <algorithm>
#include <utility>

#include "Desktop/DesktopEntry.h"
#include "Desktop/WholeFile.h"

namespace tessel {

namespace {

/// As the installed desktop entry is named, so that desktops know the two for one program.
const QString entryName = QStringLiteral("/org.tesselclipboard.TesselClipboard.desktop");
/// An entry takes a few hundred bytes. A larger file is none.
constexpr qint64 largestFile = 1'048'576;

std::optional<DesktopEntry> readEntry(const QString& path)
{
    // Opening a pipe would wait for whoever writes to it.
    if (const QFileInfo info(path); !info.isFile() || info.size() > largestFile)
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return DesktopEntry::parsed(file.readAll());
}

bool isShownIn(const DesktopEntry& entry, const QStringList& desktops)
{
    const QStringList shown = entry.strings("OnlyShowIn");
    const QStringList hidden = entry.strings("NotShowIn");
    for (const QString& desktop : desktops) {
        if (shown.contains(desktop))
            return true;
        if (hidden.contains(desktop))
            return false;
    }
    return !entry.has("OnlyShowIn");
}

bool canBeTried(const QString& program)
{
    if (QDir::isAbsolutePath(program))
        return QFileInfo(program).isFile() && QFileInfo(program).isExecutable();
    return !QStandardPaths::findExecutable(program).isEmpty();
}

/// A path as one argument of the key `Exec`.
QString quoted(const QString& path)
{
    QString argument = QStringLiteral("\"");
    for (const QChar character : path) {
        if (QStringLiteral("\"`$\\").contains(character))
            argument += QLatin1Char('\\');
        argument += character;
        if (character == QLatin1Char('%'))
            argument += character;
    }
    return argument + QLatin1Char('"');
}

DesktopEntry entryFor(const QString& program)
{
    DesktopEntry entry;
    entry.set("Type", QStringLiteral("Application"));
    entry.set("Name", QStringLiteral("Tessel Clipboard"));
    entry.set("Exec", quoted(program));
    entry.set("TryExec", program);
    entry.set("Icon", QStringLiteral("org.tesselclipboard.TesselClipboard"));
    return entry;
}

} // namespace

AutostartLoginItem::Surroundings AutostartLoginItem::standardSurroundings()
{
    const QString autostart = QStringLiteral("/autostart");
    QStringList directories = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    const QString userDirectory =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + autostart;
    for (QString& directory : directories)
        directory += autostart;
    directories.removeAll(userDirectory);
    return {userDirectory, directories,
            qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts),
            QCoreApplication::applicationFilePath()};
}

AutostartLoginItem::AutostartLoginItem(Surroundings surroundings)
    : surroundings_(std::move(surroundings))
{}

QString AutostartLoginItem::userEntry() const
{
    return surroundings_.userDirectory + entryName;
}

LoginItemStatus AutostartLoginItem::status() const
{
    const bool isEnabled =
        startsProgram(QStringList{surroundings_.userDirectory} + surroundings_.systemDirectories);
    return isEnabled ? LoginItemStatus::enabled : LoginItemStatus::notRegistered;
}

bool AutostartLoginItem::startsProgram(const QStringList& directories) const
{
    // Of entries of the same name only the one in the most important directory counts, whatever it says.
    const auto found = std::ranges::find_if(directories, [](const QString& directory) {
        const QFileInfo info(directory + entryName);
        return info.exists() && !info.isDir();
    });
    return found != directories.end() && isInForce(*found + entryName);
}

bool AutostartLoginItem::isInForce(const QString& path) const
{
    const auto entry = readEntry(path);
    if (!entry || entry->string("Type") != QLatin1String("Application") || entry->string("Exec").isEmpty())
        return false;
    if (entry->boolean("Hidden", false) || !entry->boolean("X-GNOME-Autostart-enabled", true))
        return false;
    if (entry->has("TryExec") && !canBeTried(entry->string("TryExec")))
        return false;
    return isShownIn(*entry, surroundings_.desktops);
}

bool AutostartLoginItem::registerItem()
{
    // A link to nothing, or to the null device, is how some switch an entry off.
    if (const QFileInfo there(userEntry()); there.isSymLink() && !there.isFile())
        QFile::remove(userEntry());
    return writeWholeFile(userEntry(), entryFor(surroundings_.program).content()) &&
           status() == LoginItemStatus::enabled;
}

bool AutostartLoginItem::unregisterItem()
{
    if (startsProgram(surroundings_.systemDirectories)) {
        DesktopEntry hiding = entryFor(surroundings_.program);
        hiding.set("Hidden", true);
        writeWholeFile(userEntry(), hiding.content());
    } else {
        QFile::remove(userEntry());
    }
    return status() != LoginItemStatus::enabled;
}

} // namespace tessel
