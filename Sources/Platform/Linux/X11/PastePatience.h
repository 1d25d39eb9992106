#pragma once

#include <chrono>

namespace tessel {

/// How long a paste waits for others before it goes on without them.
struct PastePatience {
    /// For the target to get the focus, from the call or from the release of a held Return, and again from
    /// when others get what is being pasted. Long enough for a window manager; a chord that comes later would
    /// come as a surprise.
    std::chrono::milliseconds focus{400};
    /// For the release of a held Return. Longer than anybody holds a key on purpose; the whole keyboard is
    /// ours meanwhile.
    std::chrono::milliseconds release{2000};
};

} // namespace tessel
