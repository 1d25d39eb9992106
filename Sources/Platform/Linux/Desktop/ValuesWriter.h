#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QThreadPool>

#include <functional>
#include <mutex>

namespace tessel {

/// Brings values to the disk one after the other, away from the thread that sets them. What is set while a
/// write runs goes into the next one together. The thread is there only while there is something to write.
class ValuesWriter {
public:
    /// Called on the writer's thread, and never twice at the same time.
    using Write = std::function<void(const QJsonObject& changes)>;

    explicit ValuesWriter(Write write);
    /// Returns when everything has been handed to `Write` and that has returned.
    ~ValuesWriter() = default;
    ValuesWriter(const ValuesWriter&) = delete;
    ValuesWriter& operator=(const ValuesWriter&) = delete;

    /// Returns at once.
    void set(const QString& key, const QJsonValue& value);

private:
    void writePending();

    Write write_;
    std::mutex mutex_;
    QJsonObject pending_; ///< Guarded by `mutex_`. As long as it is not empty, a job for it waits.
    QThreadPool thread_;  ///< The last member: it waits for its jobs as long as the others are there.
};

} // namespace tessel
