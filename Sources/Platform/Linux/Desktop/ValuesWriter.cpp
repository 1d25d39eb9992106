#include "Desktop/ValuesWriter.h"

#include <utility>

namespace tessel {

namespace {

/// How long the thread waits for more, in milliseconds: a slider that is dragged keeps it.
constexpr int idleTime = 1'000;

} // namespace

ValuesWriter::ValuesWriter(Write write)
    : write_(std::move(write))
{
    thread_.setMaxThreadCount(1);
    thread_.setExpiryTimeout(idleTime);
}

void ValuesWriter::set(const QString& key, const QJsonValue& value)
{
    const std::lock_guard lock(mutex_);
    const bool isFirst = pending_.isEmpty();
    pending_.insert(key, value);
    if (isFirst)
        thread_.start([this] { writePending(); });
}

void ValuesWriter::writePending()
{
    QJsonObject changes;
    {
        const std::lock_guard lock(mutex_);
        changes = std::exchange(pending_, {});
    }
    write_(changes);
}

} // namespace tessel
