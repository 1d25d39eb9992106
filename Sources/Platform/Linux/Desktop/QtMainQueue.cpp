#include "Desktop/QtMainQueue.h"

#include <QtCore/QTimer>

#include <chrono>
#include <cmath>
#include <memory>
#include <utility>

namespace tessel {

namespace {

/// Whole milliseconds, never less than what was asked for.
std::chrono::milliseconds milliseconds(double seconds)
{
    return std::chrono::milliseconds(std::llround(std::ceil(seconds * 1000)));
}

} // namespace

void QtMainQueue::async(std::function<void()> work)
{
    QMetaObject::invokeMethod(&context_, std::move(work), Qt::QueuedConnection);
}

void QtMainQueue::asyncAfter(double seconds, std::function<void()> work)
{
    QTimer::singleShot(milliseconds(seconds), Qt::PreciseTimer, &context_, std::move(work));
}

Token QtMainQueue::repeat(double seconds, std::function<void()> work)
{
    // A coarse timer lets the system join wake-ups.
    const auto timer = std::make_shared<QTimer>();
    timer->setTimerType(Qt::CoarseTimer);
    timer->setInterval(milliseconds(seconds));
    timer->callOnTimeout(std::move(work));
    timer->start();
    return Token([timer] { timer->stop(); });
}

} // namespace tessel
