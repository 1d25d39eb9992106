#include "Desktop/DesktopAppearance.h"

#include <QtCore/QEvent>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusPendingReply>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

#include <utility>

namespace tessel {

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalInterface = QStringLiteral("org.freedesktop.portal.Settings");

const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
// Where desktops keep what the common namespace does not have everywhere yet.
const QString gnomeGroup = QStringLiteral("org.gnome.desktop.interface");
const QString plasmaGroup = QStringLiteral("org.kde.kdeglobals.KDE");

ColorScheme paletteScheme()
{
    constexpr int middle = 128; // Of 0 to 255.
    const bool isDark = QGuiApplication::palette().color(QPalette::Window).lightness() < middle;
    return isDark ? ColorScheme::dark : ColorScheme::light;
}

/// Portals of the first version put a variant into a variant.
QVariant unpacked(const QVariant& value)
{
    return value.canConvert<QDBusVariant>() ? unpacked(value.value<QDBusVariant>().variant()) : value;
}

bool isPartOfColor(double value)
{
    return value >= 0 && value <= 1;
}

} // namespace

DesktopAppearance::DesktopAppearance(const QDBusConnection& bus)
    : bus_(bus)
{
    // The toolkit registers the latter on a thread of its own, and refuses slots that take one before.
    qDBusRegisterMetaType<PortalSettings>();
    qRegisterMetaType<QDBusVariant>();
    qGuiApp->installEventFilter(this);
    if (bus_.isConnected())
        followPortal();
    update();
}

void DesktopAppearance::followPortal()
{
    watcher_.setConnection(bus_);
    watcher_.addWatchedService(portalService);
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &DesktopAppearance::askPortal);
    connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, &DesktopAppearance::portalDidGo);
    // With the sender's name the toolkit would ask the bus for its owner, and wait for the answer.
    const QString anySender;
    for (const QString& group : {appearanceGroup, gnomeGroup, plasmaGroup})
        bus_.connect(anySender, portalPath, portalInterface, QStringLiteral("SettingChanged"), {group},
                     QString(), this, SLOT(settingDidChange(QString, QString, QDBusVariant)));
    askPortal();
}

Token DesktopAppearance::observe(std::function<void()> didChange)
{
    return observers_.add(std::move(didChange));
}

void DesktopAppearance::askPortal()
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(portalService, portalPath, portalInterface, QStringLiteral("ReadAll"));
    call << QStringList{appearanceGroup, gnomeGroup, plasmaGroup};
    call.setAutoStartService(false);
    answer_ = std::make_unique<QDBusPendingCallWatcher>(bus_.asyncCall(call));
    connect(answer_.get(), &QDBusPendingCallWatcher::finished, this, &DesktopAppearance::portalDidAnswer);
}

void DesktopAppearance::portalDidAnswer()
{
    const QDBusPendingReply<PortalSettings> reply = *answer_;
    answer_.release()->deleteLater(); // It is telling us at this moment.
    if (reply.isError())
        return;
    portal_ = reply.value();
    update();
}

void DesktopAppearance::portalDidGo()
{
    answer_.reset();
    portal_.clear();
    update();
}

void DesktopAppearance::settingDidChange(const QString& group, const QString& key, const QDBusVariant& value)
{
    portal_[group][key] = value.variant();
    // An answer that is on its way may be older than this.
    if (answer_)
        askPortal();
    update();
}

bool DesktopAppearance::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange)
        update();
    return false;
}

void DesktopAppearance::update()
{
    const AppearanceSettings now = {colorScheme(), accentColor(), reducesMotion()};
    if (std::exchange(settings_, now) != now)
        observers_.tell();
}

QVariant DesktopAppearance::portalValue(const QString& group, const QString& key) const
{
    return unpacked(portal_.value(group).value(key));
}

ColorScheme DesktopAppearance::colorScheme() const
{
    enum { noPreference, dark, light };
    switch (portalValue(appearanceGroup, QStringLiteral("color-scheme")).toUInt()) {
    case dark:
        return ColorScheme::dark;
    case light:
        return ColorScheme::light;
    default:
        return paletteScheme();
    }
}

std::optional<SystemColor> DesktopAppearance::accentColor() const
{
    const QVariant value = portalValue(appearanceGroup, QStringLiteral("accent-color"));
    if (!value.canConvert<QDBusArgument>())
        return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("(ddd)"))
        return std::nullopt;
    SystemColor color;
    argument.beginStructure();
    argument >> color.red >> color.green >> color.blue;
    argument.endStructure();
    // Values out of range say that there is none.
    const bool isColor = isPartOfColor(color.red) && isPartOfColor(color.green) && isPartOfColor(color.blue);
    return isColor ? std::optional(color) : std::nullopt;
}

bool DesktopAppearance::reducesMotion() const
{
    if (portalValue(appearanceGroup, QStringLiteral("reduced-motion")).toUInt() == 1)
        return true;
    const QVariant animations = portalValue(gnomeGroup, QStringLiteral("enable-animations"));
    if (animations.typeId() == QMetaType::Bool)
        return !animations.toBool();
    bool isNumber = false;
    const QVariant factor = portalValue(plasmaGroup, QStringLiteral("AnimationDurationFactor"));
    return factor.toDouble(&isNumber) == 0 && isNumber;
}

} // namespace tessel
