#pragma once

#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusArgument>

// What the menu's interface (com.canonical.dbusmenu) sends and takes.

namespace tessel {

/// Some properties of one entry of a menu. D-Bus type `(ia{sv})`.
struct MenuProperties {
    int id = 0;
    QVariantMap properties;
};

/// The names of properties that one entry has no longer. D-Bus type `(ias)`.
struct MenuPropertyNames {
    int id = 0;
    QStringList names;
};

/// An entry with those below it. D-Bus type `(ia{sv}av)`; each of the variants is a layout again.
struct MenuLayout {
    MenuProperties entry;
    QList<MenuLayout> children;
};

/// What has happened to an entry. D-Bus type `(isvu)`, of which the last two, data and time, say nothing
/// here.
struct MenuEvent {
    int id = 0;
    QString name;
};

using MenuPropertiesList = QList<MenuProperties>;
using MenuPropertyNamesList = QList<MenuPropertyNames>;
using MenuEvents = QList<MenuEvent>;

/// To be called before any of these types travels.
void registerMenuTypes();

QDBusArgument& operator<<(QDBusArgument& argument, const MenuProperties& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuProperties& entry);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuPropertyNames& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuPropertyNames& entry);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayout& layout);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayout& layout);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event);

} // namespace tessel

Q_DECLARE_METATYPE(tessel::MenuProperties)
Q_DECLARE_METATYPE(tessel::MenuPropertyNames)
Q_DECLARE_METATYPE(tessel::MenuLayout)
Q_DECLARE_METATYPE(tessel::MenuEvent)
