#pragma once

#include <QtCore/QString>
#include <QtDBus/QDBusAbstractAdaptor>
#include <QtDBus/QDBusObjectPath>

#include <functional>

#include "Desktop/StatusNotifier/StatusPixmap.h"
#include "Desktop/StatusNotifier/ThemedStatusIcon.h"

namespace tessel {

/// The interface by which menu bars show an item (`org.kde.StatusNotifierItem`, as freedesktop.org's
/// StatusNotifierItem has it). Nothing is drawn before somebody asks for it.
class StatusNotifierItemAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ identifier CONSTANT)
    Q_PROPERTY(QString Title READ title CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowIdentifier CONSTANT)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(QString IconThemePath READ noName CONSTANT)
    Q_PROPERTY(tessel::StatusPixmaps IconPixmap READ iconPixmap)
    Q_PROPERTY(QString OverlayIconName READ noName CONSTANT)
    Q_PROPERTY(tessel::StatusPixmaps OverlayIconPixmap READ noPixmap CONSTANT)
    Q_PROPERTY(QString AttentionIconName READ noName CONSTANT)
    Q_PROPERTY(tessel::StatusPixmaps AttentionIconPixmap READ noPixmap CONSTANT)
    Q_PROPERTY(QString AttentionMovieName READ noName CONSTANT)
    Q_PROPERTY(tessel::StatusToolTip ToolTip READ toolTip CONSTANT)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)

public:
    /// What there is to tell and to do.
    struct Contents {
        QString title;
        QDBusObjectPath menu;
        std::function<StatusPixmaps()> drawIcon;
        /// Opens the menu at this point, in pixels from the top left corner of the root window. Runs once the
        /// call was answered.
        std::function<void(int x, int y)> openMenu;
    };

    /// `parent` is the exported object, which owns the adaptor.
    StatusNotifierItemAdaptor(QObject* parent, Contents contents);

public slots: // The names are the interface's own.
    /// The item has one action, whatever the button: its menu, as in a system tray.
    void Activate(int x, int y);
    void ContextMenu(int x, int y);
    void SecondaryActivate(int x, int y);
    /// Nothing of the item can be scrolled.
    void Scroll(int delta, const QString& orientation);

signals:
    void NewIcon();

private:
    static QString category() { return QStringLiteral("ApplicationStatus"); }
    static QString identifier() { return QStringLiteral("tessel-clipboard"); }
    static QString status() { return QStringLiteral("Active"); }
    static int windowIdentifier() { return 0; }
    static QString noName() { return {}; }
    static StatusPixmaps noPixmap() { return {}; }
    static bool itemIsMenu() { return true; }
    QString title() const { return contents_.title; }
    static QString iconName() { return themedStatusIcon(); }
    StatusPixmaps iconPixmap() const { return contents_.drawIcon(); }
    StatusToolTip toolTip() const { return {contents_.title}; }
    QDBusObjectPath menu() const { return contents_.menu; }

    Contents contents_;
};

} // namespace tessel
