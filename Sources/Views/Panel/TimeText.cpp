#include "Panel/TimeText.h"

#include <cmath>

#include <QtCore/QDateTime>
#include <QtCore/QLocale>

namespace tessel {

QString timeText(Date date)
{
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(std::floor(date * 1000)));
    const QLocale locale;
    QString format = locale.timeFormat(QLocale::ShortFormat);
    format.remove(QStringLiteral(":ss")); // A few locales, "C" among them, have seconds in the short format.
    return locale.toString(moment.time(), format);
}

} // namespace tessel
