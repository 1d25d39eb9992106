#include "WaitUntil.h"

#include <chrono>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>

namespace tessel {

bool waitUntil(const std::function<bool()>& condition)
{
    constexpr std::chrono::seconds patience{60};
    const QDeadlineTimer deadline(patience);
    // Nothing may come any more; the loop has to look at the deadline all the same.
    QTimer wakeUp;
    wakeUp.start(std::chrono::milliseconds{20});
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace tessel
