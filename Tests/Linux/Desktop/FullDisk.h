#pragma once

#include <csignal>

#include <sys/resource.h>

namespace tessel {

/// While it lives, this process can write but the first bytes of a file.
class FullDisk {
public:
    explicit FullDisk(rlim_t room)
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit now = {room, before_.rlim_max};
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &now);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

} // namespace tessel
