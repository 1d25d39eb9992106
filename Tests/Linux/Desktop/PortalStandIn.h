#pragma once

#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusContext>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>

#include <vector>

namespace tessel {

/// A settings portal on a bus, with what a test puts into it.
class PortalStandIn : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    /// Values by key, by namespace.
    using Settings = QMap<QString, QVariantMap>;

    explicit PortalStandIn(const QString& busAddress);
    ~PortalStandIn() override;

    /// What it holds from the start; nobody is told.
    void hold(const QString& group, const QString& key, const QVariant& value);
    /// Changes a value and tells everybody.
    void change(const QString& group, const QString& key, const QVariant& value);
    /// Takes the portal's name. Throws where that fails.
    void start();

    /// From now on it remembers what it would answer, and says nothing.
    void keepAnswers() { keepsAnswers_ = true; }
    /// Answers what it was asked meanwhile, with what it held when it was asked, and goes on doing so.
    void giveAnswers();
    /// From now on it answers with a text where settings are awaited.
    void talkNonsense() { talksNonsense_ = true; }

    /// How often somebody has asked for everything.
    int requests() const { return requests_; }

    /// A colour as the portal has it.
    static QVariant color(double red, double green, double blue);

public slots: // The interface's own names.
    tessel::PortalStandIn::Settings ReadAll(const QStringList& namespaces);

signals:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection bus_;
    Settings settings_;
    bool keepsAnswers_ = false;
    bool talksNonsense_ = false;
    std::vector<QDBusMessage> keptAnswers_;
    int requests_ = 0;
};

} // namespace tessel
