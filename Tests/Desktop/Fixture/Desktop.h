#pragma once

#include <memory>
#include <optional>
#include <string>

#include "ChildProcess.h"
#include "Environment.h"
#include "Keyboard.h"
#include "Pixels.h"
#include "Pointer.h"
#include "SessionBus.h"
#include "TemporaryDirectory.h"
#include "VirtualDisplay.h"
#include "WindowManager.h"
#include "WindowSearch.h"
#include "XConnection.h"

namespace tessel::desktop {

enum class BusChoice { sessionBus, none };
enum class CompositorChoice { none, picom };
/// Where the scale of a desktop is said: `QT_SCALE_FACTOR`, or the resolution of fonts (`Xft.dpi` of the
/// resources that desktops set).
enum class ScaleSource { toolkitVariable, fontResolution };

/// Whether programs that were built with AddressSanitizer look for leaks when they end.
enum class LeakCheck { on, off };

struct DesktopOptions {
    Extent screen{1280, 1024};
    BusChoice bus = BusChoice::sessionBus;
    CompositorChoice compositor = CompositorChoice::none;
    WindowManagerChoice windowManager = WindowManagerChoice::openbox;
    /// Pixels for each point.
    double scale = 1;
    ScaleSource scaleSource = ScaleSource::toolkitVariable;
    ServerChoice server = ServerChoice::usual;
    /// Environment variables that programs have besides the usual ones, or in their place.
    Environment variables = {};
    LeakCheck leakCheck = LeakCheck::on;
};

/// A complete desktop of its own: a virtual X server, a session bus, a window manager, an empty home
/// directory, a keyboard, a pointer and a screen to look at. It ends with this object.
class Desktop {
public:
    explicit Desktop(DesktopOptions options = {});

    /// The colour of the empty desktop; no program here paints it.
    static constexpr Colour backgroundColour{38, 92, 110};

    /// What programs on this desktop are started with.
    const Environment& environment() const { return environment_; }
    /// Programs that are started from now on have this variable, too.
    void addVariable(const std::string& name, const std::string& value) { environment_[name] = value; }
    /// Holds the home directory and everything else that programs may write to.
    const TemporaryDirectory& directory() const { return directory_; }
    const std::string& displayName() const { return display_->name(); }
    /// The address of the session bus; empty if there is none.
    std::string busAddress() const { return bus_ ? bus_->address() : std::string(); }
    /// @name What ends as a crash does
    /// There must be one. These return when it is gone.
    /// @{
    void killCompositor() { compositor_.value().kill(); }
    void killWindowManager() { windowManager_.value().kill(); }
    void killServer() { display_.value().kill(); }
    void killBus() { bus_.value().kill(); }
    /// @}
    /// The process of the session bus, which there must be.
    pid_t busProcess() const { return bus_.value().pid(); }
    /// The process of the X server.
    pid_t serverProcess() const { return display_->process(); }
    Extent screen() const { return options_.screen; }
    /// Pixels for each point, as programs are started.
    double scale() const { return options_.scale; }

    /// Ends the window manager, which there must be. Its windows stay.
    void endWindowManager() { windowManager_.reset(); }
    /// Starts the window manager again after its end.
    void startWindowManager();

    XConnection& connection() { return *connection_; }
    Keyboard& keyboard() { return *keyboard_; }
    Pointer& pointer() { return *pointer_; }
    WindowSearch& windows() { return *windows_; }
    Pixels& pixels() { return *pixels_; }

private:
    void applyScale();
    void startCompositor();

    DesktopOptions options_;
    TemporaryDirectory directory_;
    Environment environment_;
    std::optional<VirtualDisplay> display_;
    std::optional<SessionBus> bus_;
    std::optional<XConnection> connection_;
    std::optional<WindowManager> windowManager_;
    std::optional<ChildProcess> compositor_;
    std::optional<Keyboard> keyboard_;
    std::optional<Pointer> pointer_;
    std::optional<WindowSearch> windows_;
    std::optional<Pixels> pixels_;
};

/// What a command that has ended left behind.
struct CommandResult {
    ExitStatus status;
    std::string output;
    std::string errorOutput;
};

/// Runs a command to its end.
CommandResult runCommand(std::vector<std::string> command, const Environment& environment,
                         Deadline deadline = Deadline());

} // namespace tessel::desktop
