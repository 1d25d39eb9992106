#include "Desktop.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace tessel::desktop {

namespace {

/// Variables of the surrounding session that say how programs run, not on which desktop.
constexpr std::array inheritedVariables = {"PATH",          "ASAN_OPTIONS", "LSAN_OPTIONS",
                                           "UBSAN_OPTIONS", "TSAN_OPTIONS", "LD_LIBRARY_PATH"};

Environment makeEnvironment(const TemporaryDirectory& directory)
{
    Environment environment;
    for (const auto* name : inheritedVariables) {
        if (const char* value = std::getenv(name))
            environment[name] = value;
    }
    environment["HOME"] = directory.makeDirectory("home").string();
    environment["XDG_CONFIG_HOME"] = directory.makeDirectory("home/.config").string();
    environment["XDG_DATA_HOME"] = directory.makeDirectory("home/.local/share").string();
    environment["XDG_STATE_HOME"] = directory.makeDirectory("home/.local/state").string();
    environment["XDG_CACHE_HOME"] = directory.makeDirectory("home/.cache").string();
    environment["XDG_RUNTIME_DIR"] = directory.makeDirectory("runtime").string();
    environment["TMPDIR"] = directory.makeDirectory("temporary").string();
    environment["LANG"] = "C.UTF-8";
    environment["XDG_SESSION_TYPE"] = "x11";
    // Clients of this desktop speak to its X server only, and need no helper that is not there.
    environment["GDK_BACKEND"] = "x11";
    environment["QT_QPA_PLATFORM"] = "xcb";
    environment["GTK_IM_MODULE"] = "gtk-im-context-simple";
    environment["GSETTINGS_BACKEND"] = "memory";
    environment["NO_AT_BRIDGE"] = "1";
    return environment;
}

} // namespace

Desktop::Desktop(DesktopOptions options)
    : options_(std::move(options))
    , environment_(makeEnvironment(directory_))
{
    // There is no tray here, of which the program's user has been told.
    directory_.write("home/.local/state/tessel-clipboard/state.json", R"({"trayNoticeShown": 1})");
    for (const auto& [name, value] : options_.variables)
        environment_[name] = value;
    if (options_.leakCheck == LeakCheck::off)
        environment_["ASAN_OPTIONS"] += ":detect_leaks=0";
    display_.emplace(options_.screen, environment_, options_.server);
    environment_["DISPLAY"] = display_->name();
    if (options_.bus == BusChoice::sessionBus) {
        bus_.emplace(directory_, environment_);
        environment_["DBUS_SESSION_BUS_ADDRESS"] = bus_->address();
    } else {
        environment_["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + (directory_.path() / "no-bus").string();
    }
    connection_.emplace(display_->name());
    applyScale();
    if (options_.windowManager != WindowManagerChoice::none)
        startWindowManager();
    if (options_.compositor == CompositorChoice::picom)
        startCompositor();
    keyboard_.emplace(*connection_);
    pointer_.emplace(*connection_);
    windows_.emplace(*connection_);
    pixels_.emplace(*connection_);
    pixels_->paintBackground(backgroundColour);
}

void Desktop::startWindowManager()
{
    windowManager_.emplace(options_.windowManager, *connection_, directory_, environment_);
}

void Desktop::applyScale()
{
    if (options_.scale == 1)
        return;
    if (options_.scaleSource == ScaleSource::toolkitVariable) {
        environment_.emplace("QT_SCALE_FACTOR", std::to_string(options_.scale));
        return;
    }
    constexpr double usualResolution = 96;
    const auto resources =
        "Xft.dpi:\t" + std::to_string(std::lround(usualResolution * options_.scale)) + "\n";
    xcb_change_property(connection_->get(), XCB_PROP_MODE_REPLACE, connection_->root(),
                        XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(resources.size()), resources.data());
    connection_->synchronize();
}

void Desktop::startCompositor()
{
    const std::vector<std::string> command{
        "picom",          "--backend", "xrender",         "--config", "/dev/null",
        "--fade-in-step", "1",         "--fade-out-step", "1",        "--no-fading-openclose"};
    compositor_.emplace(command, environment_);
    connection_->waitUntil("a compositor",
                           [&] { return connection_->selectionOwner("_NET_WM_CM_S0") != XCB_WINDOW_NONE; });
}

CommandResult runCommand(std::vector<std::string> command, const Environment& environment, Deadline deadline)
{
    ChildProcess process(std::move(command), environment);
    std::string output;
    while (const auto line = process.nextLine("its output and its end", deadline))
        output += *line + "\n";
    return {process.waitForExit(deadline), output, process.errorOutput()};
}

} // namespace tessel::desktop
