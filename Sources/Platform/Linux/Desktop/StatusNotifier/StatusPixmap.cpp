#include "Desktop/StatusNotifier/StatusPixmap.h"

#include <QtCore/QtEndian>

#include <cstddef>

namespace tessel {

StatusPixmap statusPixmap(const StatusIcon& icon)
{
    const auto count = static_cast<std::size_t>(icon.size) * static_cast<std::size_t>(icon.size);
    if (icon.size <= 0 || icon.pixels.size() != count)
        return {};
    StatusPixmap pixmap{icon.size, icon.size,
                        QByteArray(static_cast<qsizetype>(count * sizeof(std::uint32_t)), Qt::Uninitialized)};
    qToBigEndian<std::uint32_t>(icon.pixels.data(), static_cast<qsizetype>(count), pixmap.bytes.data());
    return pixmap;
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusPixmap& pixmap)
{
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusPixmap& pixmap)
{
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusToolTip& toolTip)
{
    argument.beginStructure();
    argument << QString() << StatusPixmaps() << toolTip.title << QString();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusToolTip& toolTip)
{
    QString iconName;
    StatusPixmaps pictures;
    QString text;
    argument.beginStructure();
    argument >> iconName >> pictures >> toolTip.title >> text;
    argument.endStructure();
    return argument;
}

} // namespace tessel
