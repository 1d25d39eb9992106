#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusServiceWatcher>

#include <memory>

namespace tessel {

/// Registers an item with the watcher of the desktop's menu bars (`org.kde.StatusNotifierWatcher`): with the
/// one there is, and with each one that comes later. Nothing waits for the bus or for the watcher, which may
/// take any time to answer.
class StatusNotifierRegistration : public QObject {
    Q_OBJECT

public:
    /// The item is the object at "/StatusNotifierItem" of the connection, which must be exported already.
    explicit StatusNotifierRegistration(const QDBusConnection& bus);

    /// True while the watcher has the item, and has a host that shows it.
    bool isShown() const { return isShown_; }

signals:
    /// `isShown` has changed.
    void isShownDidChange();

private slots:
    void hostsDidChange();
    void busDidGo();

private:
    using Answer = std::unique_ptr<QDBusPendingCallWatcher>;

    void watcherDidChange(const QString& newOwner);
    void registerItem();
    void askForHost();
    void registrationDidEnd();
    void hostAnswerDidCome();
    void forgetWatcher();
    void update();

    QDBusConnection bus_;
    QDBusServiceWatcher names_;
    Answer registration_; ///< None: not on its way.
    Answer hostAnswer_;   ///< None: not on its way.
    bool isRegistered_ = false;
    bool hasHost_ = false;
    bool isShown_ = false;
};

} // namespace tessel
