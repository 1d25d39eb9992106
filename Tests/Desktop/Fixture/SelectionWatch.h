#pragma once

#include <cstdint>
#include <string>

#include "XConnection.h"

namespace tessel::desktop {

/// Counts the changes of owner of the CLIPBOARD selection, by XFixes.
class SelectionWatch {
public:
    explicit SelectionWatch(const std::string& displayName);

    /// How many changes there were since this object was made.
    std::uint64_t count();
    /// Waits until there were more changes than `before`.
    void waitForMoreThan(std::uint64_t before, Deadline deadline = Deadline());

private:
    void note(const xcb_generic_event_t& event);

    XConnection connection_;
    std::uint8_t ownerChangeEvent_;
    std::uint64_t count_ = 0;
};

} // namespace tessel::desktop
