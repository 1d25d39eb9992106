#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtDBus/QDBusArgument>

#include "StatusItem.h"

namespace tessel {

/// A picture as it goes over the bus (StatusNotifierItem, "Icons"): ARGB32, not premultiplied, in network
/// byte order, rows from the top. D-Bus type `(iiay)`.
struct StatusPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;
};

/// The same picture in several sizes. D-Bus type `a(iiay)`.
using StatusPixmaps = QList<StatusPixmap>;

/// Empty, without width and height, where the icon is, or where it has not as many pixels as its size says.
StatusPixmap statusPixmap(const StatusIcon& icon);

/// What is to be seen of an item while the pointer rests on it: a name of an icon, pictures, a title and a
/// text. D-Bus type `(sa(iiay)ss)`.
struct StatusToolTip {
    QString title;
};

QDBusArgument& operator<<(QDBusArgument& argument, const StatusPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const StatusToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusToolTip& toolTip);

} // namespace tessel

Q_DECLARE_METATYPE(tessel::StatusPixmap)
Q_DECLARE_METATYPE(tessel::StatusToolTip)
