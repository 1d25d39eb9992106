#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace tessel {

/// Stands for a process that keys can be posted to. Opaque: on X11 it stands for the recorded window.
enum class ProcessIdentifier : std::int64_t {};

/// `NSApplicationActivationOptions`.
enum class ActivationOptions : std::uint64_t {
    ignoringOtherApps = 2, ///< `NSApplicationActivateIgnoringOtherApps`
};

/// A handle on an application that was running when the handle was made (`NSRunningApplication`). It stays
/// valid, and does nothing, once the application has quit.
class RunningApplication {
public:
    virtual ~RunningApplication() = default;

    /// Asks for the application to be brought to the front. False: it cannot be, for instance because it has
    /// quit.
    virtual bool activate(ActivationOptions options) = 0;
    virtual ProcessIdentifier processIdentifier() const = 0;
};

/// What the user has in front (`NSWorkspace`).
class Workspace {
public:
    virtual ~Workspace() = default;

    /// The application that has the user's focus now. Null: none has.
    virtual std::shared_ptr<RunningApplication> frontmostApplication() = 0;

    /// Opens an address with the program that the desktop has for it. Failure is silent.
    virtual void openURL(std::string_view url) = 0;
};

} // namespace tessel
