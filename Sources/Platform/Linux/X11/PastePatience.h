#pragma once

#include <chrono>

namespace tessel {

/// How long a paste waits for others before it goes on without them.
struct PastePatience {
    /// For the target to get the focus, from the call or from the release of a held Return. A busy window
    /// manager takes its time; who has gone elsewhere meanwhile is not pasted into.
    std::chrono::milliseconds focus{2000};
    /// For the release of a held Return. Longer than anybody holds a key on purpose; the whole keyboard is
    /// ours meanwhile.
    std::chrono::milliseconds release{2000};
};

} // namespace tessel
