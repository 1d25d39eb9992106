#pragma once

#include <string>

#include "ChildProcess.h"

namespace tessel::desktop {

/// Extent in pixels.
struct Extent {
    int width = 0;
    int height = 0;

    bool operator==(const Extent&) const = default;
};

/// A virtual X server (Xvfb) on a display number of its own.
class VirtualDisplay {
public:
    VirtualDisplay(Extent screen, const Environment& environment);

    /// The value for `DISPLAY`, such as ":3".
    const std::string& name() const { return name_; }

    pid_t process() const { return server_.pid(); }

private:
    ChildProcess server_;
    std::string name_;
};

} // namespace tessel::desktop
