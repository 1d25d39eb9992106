#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <cstdint>
#include <vector>

#include "StatusNotifierWatcherStandIn.h"

namespace tessel {

/// One entry of an item's menu as it came over the bus.
struct ReadMenuEntry {
    int id = 0;
    QVariantMap properties;
    std::vector<ReadMenuEntry> children;

    QString label() const { return properties.value(QStringLiteral("label")).toString(); }
    bool isEnabled() const { return properties.value(QStringLiteral("enabled"), true).toBool(); }
    bool isSeparator() const
    {
        return properties.value(QStringLiteral("type")) == QStringLiteral("separator");
    }
};

/// A picture as an item sends it: pixels 0xAARRGGBB by rows from the top.
struct ReadPixmap {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// A host of one status item: reads it, shows its menu and clicks. Answers are awaited, and the event loop
/// runs meanwhile, so that the item may live on the same thread.
class StatusItemReader : public QObject {
    Q_OBJECT

public:
    StatusItemReader(const QDBusConnection& bus, RegisteredStatusItem item);

    /// All properties of `org.kde.StatusNotifierItem`.
    QVariantMap properties();
    std::vector<ReadPixmap> pixmaps();
    /// Calls a method of `org.kde.StatusNotifierItem`.
    QDBusMessage callItem(const QString& method, const QVariantList& arguments = {});

    /// Tells the menu that it is about to be shown, and reads it.
    void openMenu();
    /// The menu's entries as a host has them: read once, and then kept up to date by the menu's signals.
    const std::vector<ReadMenuEntry>& entries() const { return menu_.children; }
    /// The entry with this label; null if there is none.
    const ReadMenuEntry* entry(const QString& label) const;
    std::uint32_t revision() const { return revision_; }
    /// Sends what a host sends when an entry is clicked.
    QDBusMessage click(int id) { return sendEvent(id, QStringLiteral("clicked")); }
    QDBusMessage sendEvent(int id, const QString& name);
    /// Calls a method of `com.canonical.dbusmenu`.
    QDBusMessage callMenu(const QString& method, const QVariantList& arguments = {});
    QVariantMap menuProperties();
    /// Calls a method of any interface of an object of the item's.
    QDBusMessage call(const QString& path, const QString& interfaceName, const QString& method,
                      const QVariantList& arguments);

    int newIcons() const { return newIcons_; }
    int layoutUpdates() const { return layoutUpdates_; }
    int propertyUpdates() const { return propertyUpdates_; }

    /// The contents of an argument of the type `(ia{sv}av)`.
    static ReadMenuEntry readLayout(const QDBusArgument& argument);

signals:
    /// `entries` has changed.
    void menuDidChange();

private slots:
    void iconDidChange() { ++newIcons_; }
    void layoutDidChange(unsigned revision, int parent);
    void propertiesDidChange(const QDBusMessage& message);

private:
    void readMenu();
    void apply(int id, const QVariantMap& changed);

    QDBusConnection bus_;
    RegisteredStatusItem item_;
    QString menuPath_;
    ReadMenuEntry menu_;
    std::uint32_t revision_ = 0;
    int newIcons_ = 0;
    int layoutUpdates_ = 0;
    int propertyUpdates_ = 0;
};

} // namespace tessel
