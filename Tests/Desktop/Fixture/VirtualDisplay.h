#pragma once

#include <memory>
#include <string>

#include "ChildProcess.h"

namespace tessel::desktop {

/// Extent in pixels.
struct Extent {
    int width = 0;
    int height = 0;

    bool operator==(const Extent&) const = default;
};

enum class ServerChoice {
    usual,                ///< Xvfb.
    withoutSyntheticKeys, ///< The same without its XTEST extension: nothing here can press a key.
    xwayland,             ///< Xwayland on a Wayland compositor without a screen (Weston).
};

/// A virtual X server on a display number of its own.
class VirtualDisplay {
public:
    VirtualDisplay(Extent screen, const Environment& environment, ServerChoice choice = ServerChoice::usual);

    /// The value for `DISPLAY`, such as ":3".
    const std::string& name() const { return name_; }

    pid_t process() const { return server_.pid(); }
    /// Ends the server as a crash does, and returns when it is gone.
    void kill() { server_.kill(); }

private:
    std::unique_ptr<ChildProcess> compositor_;
    ChildProcess server_;
    std::string name_;
};

} // namespace tessel::desktop
