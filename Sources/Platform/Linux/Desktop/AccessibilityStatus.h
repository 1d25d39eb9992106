#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtCore/QVariantMap>

namespace tessel {

/// Follows what the desktop says about assistive programs (`org.a11y.Status` on the session bus). The toolkit
/// asks for it once, when it finds the accessibility bus, and a screen reader that is started later would see
/// nothing of a program that runs since the log-in.
///
/// Without a session bus, or where the toolkit turns out to be made otherwise, this does nothing.
class AccessibilityStatus : public QObject {
    Q_OBJECT

public:
    /// To be made before the first window.
    AccessibilityStatus();

private slots:
    void propertiesDidChange(const QString& interfaceName, const QVariantMap& changed,
                             const QStringList& invalidated);

private:
    void wakeToolkit();

    /// What the desktop has said of late.
    QVariantMap status_;
    bool isEnabled_ = false;

    /// The toolkit's own connection to the accessibility bus. Null: there is none.
    QPointer<QObject> toolkitConnection_;
};

} // namespace tessel
