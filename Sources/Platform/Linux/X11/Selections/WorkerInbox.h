#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace tessel {

/// Work for the worker thread from other threads. A file descriptor becomes readable when there is some.
class WorkerInbox {
public:
    WorkerInbox();
    ~WorkerInbox();
    WorkerInbox(const WorkerInbox&) = delete;
    WorkerInbox& operator=(const WorkerInbox&) = delete;

    /// From any thread.
    void post(std::function<void()> work);
    /// For `poll`.
    int fileDescriptor() const { return fileDescriptor_; }
    /// Takes everything out, in the order of posting, and makes the descriptor unreadable.
    std::vector<std::function<void()>> takeAll();

private:
    int fileDescriptor_;
    std::mutex mutex_;
    std::vector<std::function<void()>> work_;
};

/// `value` as other threads may have it: wherever the last of them drops it, a large one (`largeValueBytes`)
/// is freed by the worker. Without a worker it is freed where it is dropped. `onDropped` runs on the worker
/// after that.
std::shared_ptr<const std::string> freedByWorker(std::shared_ptr<const std::string> value,
                                                 const std::shared_ptr<WorkerInbox>& inbox,
                                                 std::function<void()> onDropped);

} // namespace tessel
