#pragma once

#include <memory>
#include <optional>

#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusServiceWatcher>
#include <QtDBus/QDBusVariant>

#include "Appearance.h"
#include "Support/ObserverList.h"

namespace tessel {

/// Values by key, by namespace.
using PortalSettings = QMap<QString, QVariantMap>;

/// The desktop's appearance, as its settings portal says it (`org.freedesktop.appearance` of
/// `org.freedesktop.portal.Settings`). Where there is no portal, or it does not say, the toolkit's palette
/// tells light from dark. The portal is never started for this; when it comes later it is asked then.
class DesktopAppearance final : public QObject, public Appearance {
    Q_OBJECT

public:
    /// `QGuiApplication` must exist. The first answer arrives on a later turn of the main loop.
    explicit DesktopAppearance(const QDBusConnection& bus = QDBusConnection::sessionBus());

    const AppearanceSettings& settings() const override { return settings_; }
    Token observe(std::function<void()> didChange) override;

private slots:
    void settingDidChange(const QString& group, const QString& key, const QDBusVariant& value);

private:
    bool eventFilter(QObject* object, QEvent* event) override;
    void followPortal();
    /// An earlier question, if there is one on its way, is forgotten.
    void askPortal();
    void portalDidAnswer();
    void portalDidGo();
    void update();
    QVariant portalValue(const QString& group, const QString& key) const;

    ColorScheme colorScheme() const;
    std::optional<SystemColor> accentColor() const;
    bool reducesMotion() const;

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    PortalSettings portal_;
    /// None: no question is on its way.
    std::unique_ptr<QDBusPendingCallWatcher> answer_;
    AppearanceSettings settings_;
    ObserverList<> observers_;
};

} // namespace tessel
