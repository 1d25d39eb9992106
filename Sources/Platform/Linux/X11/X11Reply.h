#pragma once

#include <cstdlib>
#include <memory>

namespace tessel {

/// XCB hands out replies, errors and events as `malloc` blocks that the receiver frees.
struct FreeBlock {
    void operator()(void* block) const { std::free(block); }
};

/// A reply, error or event that this program owns. Null: an error, or a lost connection.
template <class Reply>
using X11Reply = std::unique_ptr<Reply, FreeBlock>;

} // namespace tessel
