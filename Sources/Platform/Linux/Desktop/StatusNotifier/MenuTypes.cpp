#include "Desktop/StatusNotifier/MenuTypes.h"

#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusVariant>

namespace tessel {

void registerMenuTypes()
{
    qDBusRegisterMetaType<MenuProperties>();
    qDBusRegisterMetaType<MenuPropertiesList>();
    qDBusRegisterMetaType<MenuPropertyNames>();
    qDBusRegisterMetaType<MenuPropertyNamesList>();
    qDBusRegisterMetaType<MenuLayout>();
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<MenuEvents>();
    // What calls bring and signals carry is looked up by the names that the declarations use.
    qRegisterMetaType<MenuPropertiesList>("tessel::MenuPropertiesList");
    qRegisterMetaType<MenuPropertyNamesList>("tessel::MenuPropertyNamesList");
    qRegisterMetaType<MenuEvents>("tessel::MenuEvents");
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuProperties& entry)
{
    argument.beginStructure();
    argument << entry.id << entry.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuProperties& entry)
{
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuPropertyNames& entry)
{
    argument.beginStructure();
    argument << entry.id << entry.names;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuPropertyNames& entry)
{
    argument.beginStructure();
    argument >> entry.id >> entry.names;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayout& layout)
{
    argument.beginStructure();
    argument << layout.entry.id << layout.entry.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const MenuLayout& child : layout.children)
        argument << QDBusVariant(QVariant::fromValue(child));
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayout& layout)
{
    argument.beginStructure();
    argument >> layout.entry.id >> layout.entry.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        layout.children.append(qdbus_cast<MenuLayout>(child.variant()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event)
{
    argument.beginStructure();
    argument << event.id << event.name << QDBusVariant(0) << 0U;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event)
{
    QDBusVariant data;
    unsigned time = 0;
    argument.beginStructure();
    argument >> event.id >> event.name >> data >> time;
    argument.endStructure();
    return argument;
}

} // namespace tessel
