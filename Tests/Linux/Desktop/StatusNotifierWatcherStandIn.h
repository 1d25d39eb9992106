#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusContext>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusServiceWatcher>

#include <vector>

namespace tessel {

/// A status item as a watcher knows it.
struct RegisteredStatusItem {
    QString service;
    QString path;

    bool operator==(const RegisteredStatusItem&) const = default;
};

/// The watcher of a desktop with a menu bar (`org.kde.StatusNotifierWatcher`), with one host or none.
class StatusNotifierWatcherStandIn : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ answerHost)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion CONSTANT)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ itemNames)

public:
    /// How it treats those who register or ask.
    enum class Conduct {
        good,
        refuses,  ///< Answers every registration with an error.
        isSilent, ///< Answers nothing, until `answerAtLast`.
    };

    explicit StatusNotifierWatcherStandIn(const QString& busAddress);
    ~StatusNotifierWatcherStandIn() override;

    /// Takes the watcher's name. Throws where that fails.
    void start();
    /// Gives the name up, and forgets the items.
    void stop();
    void setConduct(Conduct conduct) { conduct_ = conduct; }
    /// From now on it has a host, or none any more, and tells everybody. It has one from the start.
    void setHost(bool hasHost);
    /// Answers as it should what it was silent on, and goes on doing so.
    void answerAtLast();

    const std::vector<RegisteredStatusItem>& items() const { return items_; }
    /// How often an item has asked to be registered.
    int registrations() const { return registrations_; }
    /// How often the host was asked for.
    int questions() const { return questions_; }
    QDBusConnection& bus() { return bus_; }

public slots: // The interface's own names.
    void RegisterStatusNotifierItem(const QString& service);
    void RegisterStatusNotifierHost(const QString& service);

signals:
    void StatusNotifierItemRegistered(const QString& service);
    void StatusNotifierItemUnregistered(const QString& service);
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();

    /// Of this object, not of the interface: `items` has changed.
    void itemsDidChange();

private:
    bool answerHost();
    static int protocolVersion() { return 0; }
    QStringList itemNames() const;
    void add(const RegisteredStatusItem& item);
    void forget(const QString& service);

    QDBusConnection bus_;
    QDBusServiceWatcher owners_;
    Conduct conduct_ = Conduct::good;
    bool hasHost_ = true;
    std::vector<RegisteredStatusItem> items_;
    std::vector<QDBusMessage> unanswered_;
    int registrations_ = 0;
    int questions_ = 0;
};

} // namespace tessel
