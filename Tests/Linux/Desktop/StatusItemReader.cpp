#include "StatusItemReader.h"

#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVariant>
#include <QtEndian>

#include <utility>

namespace tessel {

namespace {

const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
constexpr int patience = 60'000; // Milliseconds.

QVariantMap firstMap(const QDBusMessage& reply)
{
    return reply.arguments().isEmpty() ? QVariantMap()
                                       : qdbus_cast<QVariantMap>(reply.arguments().constFirst());
}

ReadPixmap readPixmap(const QDBusArgument& argument)
{
    ReadPixmap pixmap;
    QByteArray bytes;
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> bytes;
    argument.endStructure();
    for (qsizetype offset = 0; offset + 4 <= bytes.size(); offset += 4)
        pixmap.pixels.push_back(qFromBigEndian<quint32>(bytes.constData() + offset));
    return pixmap;
}

} // namespace

StatusItemReader::StatusItemReader(const QDBusConnection& bus, RegisteredStatusItem item)
    : bus_(bus)
    , item_(std::move(item))
{
    bus_.connect(item_.service, item_.path, itemInterface, QStringLiteral("NewIcon"), this,
                 SLOT(iconDidChange()));
}

QVariantMap StatusItemReader::properties()
{
    return firstMap(call(item_.path, propertiesInterface, QStringLiteral("GetAll"), {itemInterface}));
}

std::vector<ReadPixmap> StatusItemReader::pixmaps()
{
    std::vector<ReadPixmap> pixmaps;
    const auto argument = properties().value(QStringLiteral("IconPixmap")).value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("a(iiay)"))
        return pixmaps;
    argument.beginArray();
    while (!argument.atEnd())
        pixmaps.push_back(readPixmap(argument));
    argument.endArray();
    return pixmaps;
}

QDBusMessage StatusItemReader::callItem(const QString& method, const QVariantList& arguments)
{
    return call(item_.path, itemInterface, method, arguments);
}

void StatusItemReader::openMenu()
{
    if (menuPath_.isEmpty()) {
        menuPath_ = properties().value(QStringLiteral("Menu")).value<QDBusObjectPath>().path();
        bus_.connect(item_.service, menuPath_, menuInterface, QStringLiteral("LayoutUpdated"), this,
                     SLOT(layoutDidChange(unsigned, int)));
        bus_.connect(item_.service, menuPath_, menuInterface, QStringLiteral("ItemsPropertiesUpdated"), this,
                     SLOT(propertiesDidChange(QDBusMessage)));
    }
    callMenu(QStringLiteral("AboutToShow"), {0});
    readMenu();
}

const ReadMenuEntry* StatusItemReader::entry(const QString& label) const
{
    for (const ReadMenuEntry& entry : menu_.children) {
        if (entry.label() == label)
            return &entry;
    }
    return nullptr;
}

QDBusMessage StatusItemReader::sendEvent(int id, const QString& name)
{
    return callMenu(QStringLiteral("Event"), {id, name, QVariant::fromValue(QDBusVariant(0)), 0U});
}

QDBusMessage StatusItemReader::callMenu(const QString& method, const QVariantList& arguments)
{
    return call(menuPath_, menuInterface, method, arguments);
}

QVariantMap StatusItemReader::menuProperties()
{
    return firstMap(call(menuPath_, propertiesInterface, QStringLiteral("GetAll"), {menuInterface}));
}

QDBusMessage StatusItemReader::call(const QString& path, const QString& interfaceName, const QString& method,
                                    const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(item_.service, path, interfaceName, method);
    message.setArguments(arguments);
    return bus_.call(message, QDBus::BlockWithGui, patience);
}

ReadMenuEntry StatusItemReader::readLayout(const QDBusArgument& argument)
{
    ReadMenuEntry entry;
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        entry.children.push_back(readLayout(child.variant().value<QDBusArgument>()));
    }
    argument.endArray();
    argument.endStructure();
    return entry;
}

void StatusItemReader::layoutDidChange(unsigned /*revision*/, int /*parent*/)
{
    ++layoutUpdates_;
    readMenu();
}

void StatusItemReader::propertiesDidChange(const QDBusMessage& message)
{
    ++propertyUpdates_;
    if (message.signature() != QStringLiteral("a(ia{sv})a(ias)"))
        return;
    const auto changes = message.arguments().constFirst().value<QDBusArgument>();
    changes.beginArray();
    while (!changes.atEnd()) {
        int id = 0;
        QVariantMap changed;
        changes.beginStructure();
        changes >> id >> changed;
        changes.endStructure();
        apply(id, changed);
    }
    changes.endArray();
    emit menuDidChange();
}

void StatusItemReader::readMenu()
{
    const QDBusMessage reply = callMenu(QStringLiteral("GetLayout"), {0, -1, QStringList()});
    if (reply.signature() != QStringLiteral("u(ia{sv}av)"))
        return;
    revision_ = reply.arguments().constFirst().toUInt();
    menu_ = readLayout(reply.arguments().constLast().value<QDBusArgument>());
    emit menuDidChange();
}

void StatusItemReader::apply(int id, const QVariantMap& changed)
{
    for (ReadMenuEntry& entry : menu_.children) {
        if (entry.id == id)
            entry.properties.insert(changed);
    }
}

} // namespace tessel
