#include "Desktop/AccessibilityStatus.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtDBus/QDBusConnection>
#include <QtGui/QAccessible>

#include <utility>

namespace tessel {

namespace {

constexpr QLatin1StringView serviceName("org.a11y.Bus");
constexpr QLatin1StringView objectPath("/org/a11y/bus");
constexpr QLatin1StringView statusInterface("org.a11y.Status");

/// Sees the toolkit make its object of class `DBusConnection`. No function leads to that object, but it is
/// told of its first child, as every object is, by an event that passes through the application.
class ToolkitConnectionFinder : public QObject {
public:
    /// Null: the toolkit has no such object, or had it before.
    QObject* find()
    {
        QCoreApplication::instance()->installEventFilter(this);
        // The first question of this kind makes the toolkit set itself up for assistive programs.
        static_cast<void>(QAccessible::isActive());
        QCoreApplication::instance()->removeEventFilter(this);
        return found_;
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::ChildAdded && object->inherits("DBusConnection"))
            found_ = object;
        return false;
    }

private:
    QObject* found_ = nullptr;
};

bool saysEnabled(const QVariantMap& status)
{
    return status.value(QStringLiteral("IsEnabled")).toBool() ||
           status.value(QStringLiteral("ScreenReaderEnabled")).toBool();
}

} // namespace

AccessibilityStatus::AccessibilityStatus()
    : toolkitConnection_(ToolkitConnectionFinder().find())
{
    if (toolkitConnection_ == nullptr)
        return;
    QDBusConnection::sessionBus().connect(serviceName, objectPath,
                                          QStringLiteral("org.freedesktop.DBus.Properties"),
                                          QStringLiteral("PropertiesChanged"), this,
                                          SLOT(propertiesDidChange(QString, QVariantMap, QStringList)));
}

void AccessibilityStatus::propertiesDidChange(const QString& interfaceName, const QVariantMap& changed,
                                              const QStringList& /*invalidated*/)
{
    if (interfaceName != statusInterface)
        return;
    status_.insert(changed);
    // Both are often set, one after the other.
    const bool wasEnabled = std::exchange(isEnabled_, saysEnabled(status_));
    if (isEnabled_ && !wasEnabled && !QAccessible::isActive())
        wakeToolkit();
}

void AccessibilityStatus::wakeToolkit()
{
    if (toolkitConnection_ == nullptr)
        return;
    // A toolkit that has found the accessibility bus by the property of the root window is connected to it,
    // but was told of no assistive program. Any other looks at everything once more.
    const bool isConnected = QDBusConnection(QStringLiteral("a11y")).isConnected();
    if (isConnected)
        QMetaObject::invokeMethod(toolkitConnection_, "enabledChanged", Q_ARG(bool, true));
    else
        QMetaObject::invokeMethod(toolkitConnection_, "serviceRegistered");
}

} // namespace tessel
