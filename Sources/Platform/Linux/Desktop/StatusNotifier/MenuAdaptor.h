#pragma once

#include <QtDBus/QDBusAbstractAdaptor>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>

#include <functional>
#include <vector>

#include "Desktop/StatusNotifier/MenuEntries.h"
#include "Desktop/StatusNotifier/MenuTypes.h"

namespace tessel {

/// The interface by which menu bars read a menu and say what was chosen in it (com.canonical.dbusmenu). The
/// menu is one level deep.
class MenuAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(unsigned Version READ version CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    /// `parent` is the exported object, which owns the adaptor. `willChoose` runs before what a row does.
    MenuAdaptor(QObject* parent, const QDBusConnection& bus, std::function<void()> willChoose);

    /// Puts these rows in the place of those before, and announces what is different.
    void setRows(std::vector<StatusMenuRow> rows);

public slots: // The names are the interface's own.
    /// An entry with its properties and, `recursionDepth` levels deep (negative: as deep as it goes), those
    /// below it. Without names all properties are meant.
    unsigned GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                       const QDBusMessage& message, tessel::MenuLayout& layout);
    /// Of these entries, as far as there are such; without numbers all entries are meant.
    tessel::MenuPropertiesList GetGroupProperties(const QList<int>& ids, const QStringList& propertyNames);
    /// One property of the root or an entry; an error where there is no such entry, and for a property that
    /// is at its default, which none of these functions names.
    QDBusVariant GetProperty(int id, const QString& name, const QDBusMessage& message);
    /// Of all events `clicked` alone does something, once the call was answered.
    void Event(int id, const QString& eventId, const QDBusVariant& data, unsigned timestamp,
               const QDBusMessage& message);
    /// Returns the numbers that no entry has; an error if none has any.
    QList<int> EventGroup(const tessel::MenuEvents& events, const QDBusMessage& message);
    /// Whether the menu has to be read again: never, all changes have been announced.
    bool AboutToShow(int id, const QDBusMessage& message);
    /// The same of several, hence none has to be read again. `idErrors` takes the numbers that no entry has;
    /// an error if none has any.
    QList<int> AboutToShowGroup(const QList<int>& ids, const QDBusMessage& message, QList<int>& idErrors);

signals:
    void ItemsPropertiesUpdated(const tessel::MenuPropertiesList& updatedProps,
                                const tessel::MenuPropertyNamesList& removedProps);
    void LayoutUpdated(unsigned revision, int parent);

private:
    static unsigned version() { return 3; } // The first one with groups of events.
    static QString textDirection();
    static QString status() { return QStringLiteral("normal"); }
    static QStringList iconThemePath() { return {}; }

    bool has(int id) const;
    /// Of the root or an entry that there is.
    QVariantMap properties(int id) const;
    /// False: there is no such entry.
    bool happen(const MenuEvent& event);
    void refuse(const QDBusMessage& call, const QString& why);

    QDBusConnection bus_;
    std::function<void()> willChoose_;
    MenuEntries entries_;
    unsigned revision_ = 1;
};

} // namespace tessel
