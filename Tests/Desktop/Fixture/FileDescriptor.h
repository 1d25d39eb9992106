#pragma once

#include <unistd.h>

#include <utility>

namespace tessel::desktop {

/// Owns a file descriptor of the system, or none.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : descriptor_(descriptor)
    {}
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, none))
    {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~FileDescriptor() { reset(); }

    void reset()
    {
        if (isOpen())
            ::close(std::exchange(descriptor_, none));
    }
    bool isOpen() const { return descriptor_ != none; }
    int get() const { return descriptor_; }

private:
    static constexpr int none = -1;
    int descriptor_ = none;
};

} // namespace tessel::desktop
