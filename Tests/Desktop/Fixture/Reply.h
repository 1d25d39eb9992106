#pragma once

#include <cstdlib>
#include <memory>

namespace tessel::desktop {

struct ReplyDeleter {
    void operator()(void* reply) const { std::free(reply); }
};

/// Owns a reply, an event or an error of the X server; null where the request failed.
template <class Contents>
using Reply = std::unique_ptr<Contents, ReplyDeleter>;

template <class Contents>
Reply<Contents> own(Contents* reply)
{
    return Reply<Contents>(reply);
}

} // namespace tessel::desktop
