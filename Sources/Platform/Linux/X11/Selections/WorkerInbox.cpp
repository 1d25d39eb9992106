#include "X11/Selections/WorkerInbox.h"

#include <cstdint>
#include <string>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

#include "X11/Selections/LargeBlocks.h"

namespace tessel {

WorkerInbox::WorkerInbox()
    : fileDescriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{}

WorkerInbox::~WorkerInbox()
{
    if (fileDescriptor_ >= 0)
        close(fileDescriptor_);
}

void WorkerInbox::post(std::function<void()> work)
{
    {
        const std::lock_guard lock(mutex_);
        work_.push_back(std::move(work));
    }
    // Fails only when the counter is full, and then the worker has been woken already.
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(fileDescriptor_, &one, sizeof one);
}

std::vector<std::function<void()>> WorkerInbox::takeAll()
{
    std::uint64_t count = 0;
    // Fails only when nothing has been posted.
    [[maybe_unused]] const auto taken = read(fileDescriptor_, &count, sizeof count);
    const std::lock_guard lock(mutex_);
    return std::exchange(work_, {});
}

std::shared_ptr<const std::string> freedByWorker(std::shared_ptr<const std::string> value,
                                                 const std::shared_ptr<WorkerInbox>& inbox,
                                                 std::function<void()> onDropped)
{
    if (!value || value->size() < largeValueBytes)
        return value;
    const std::string* bytes = value.get();
    auto free = [value = std::move(value), weakInbox = std::weak_ptr(inbox),
                 onDropped = std::move(onDropped)](const std::string*) mutable {
        const auto present = weakInbox.lock();
        if (!present)
            return value.reset();
        present->post([value = std::move(value), onDropped = std::move(onDropped)]() mutable {
            value.reset();
            onDropped();
        });
    };
    return {bytes, std::move(free)};
}

} // namespace tessel
