#include "WindowManager.h"

namespace tessel::desktop {

namespace {

/// New windows get the focus and a click raises: what people have. One key binding,
/// so that every other key reaches the programs under test.
constexpr std::string_view openboxConfiguration = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <desktops><number>2</number><popupTime>0</popupTime></desktops>
  <keyboard>
    <keybind key="A-Tab"><action name="NextWindow"><dialog>none</dialog></action></keybind>
  </keyboard>
  <mouse>
    <context name="Client">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
    <context name="Titlebar">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
  </mouse>
</openbox_config>
)";

/// A window of every kind takes its place in the tiling unless it says that it floats. No bar.
constexpr std::string_view i3Configuration =
    "# i3 config file (v4)\nfont pango:monospace 8\nbindsym Mod1+Tab focus mode_toggle\n";

/// Without animations, which only take time here.
constexpr std::string_view kwinGlobalConfiguration = "[KDE]\nAnimationDurationFactor=0\n";
/// Its key for the launcher, Super pressed and released alone, shows the next desktop, which is easily seen.
constexpr std::string_view kwinConfiguration =
    "[Desktops]\nNumber=2\n"
    "[ModifierOnlyShortcuts]\nMeta=org.kde.KWin,/KWin,org.kde.KWin,nextDesktop\n";

constexpr std::string_view kwinBlur = "[Plugins]\nblurEnabled=true\n";

/// Openbox announces itself before it is ready for windows, and loses those that come in between. It sets
/// this property of the root window when it is.
constexpr const char* readyProperty = "TESSEL_WINDOW_MANAGER_READY";

std::string announcement()
{
    return std::string("xprop -root -f ") + readyProperty + " 32c -set " + readyProperty + " 1";
}

/// Takes away what the one before has left behind, which would be taken for the next one's.
void forgetAnnouncement(XConnection& connection)
{
    xcb_delete_property(connection.get(), connection.root(), connection.atom(readyProperty));
    connection.synchronize();
}

std::vector<std::string> managerCommand(WindowManagerChoice choice, const TemporaryDirectory& directory)
{
    switch (choice) {
    case WindowManagerChoice::none:
        break;
    case WindowManagerChoice::openbox: {
        const auto file = directory.write("openbox.xml", std::string(openboxConfiguration));
        return {"openbox", "--sm-disable", "--config-file", file.string(), "--startup", announcement()};
    }
    case WindowManagerChoice::xfwm4:
        // Its settings come over the session bus, where nobody has any: it takes its defaults.
        return {"xfwm4", "--compositor=on", "--vblank=off"};
    case WindowManagerChoice::i3: {
        const auto file = directory.write("i3.config", std::string(i3Configuration));
        return {"i3", "-c", file.string()};
    }
    case WindowManagerChoice::kwin:
        directory.write("home/.config/kdeglobals", std::string(kwinGlobalConfiguration));
        directory.write("home/.config/kwinrc", std::string(kwinConfiguration));
        return {"kwin_x11"};
    case WindowManagerChoice::blurringKwin:
        directory.write("home/.config/kdeglobals", std::string(kwinGlobalConfiguration));
        directory.write("home/.config/kwinrc", std::string(kwinBlur));
        return {"env", "KWIN_COMPOSE=O2", "kwin_x11"};
    }
    throw DesktopFailure("there is no window manager to start");
}

bool composites(WindowManagerChoice choice)
{
    return choice == WindowManagerChoice::xfwm4 || choice == WindowManagerChoice::kwin ||
           choice == WindowManagerChoice::blurringKwin;
}

} // namespace

std::ostream& operator<<(std::ostream& stream, WindowManagerChoice choice)
{
    switch (choice) {
    case WindowManagerChoice::none:
        return stream << "none";
    case WindowManagerChoice::openbox:
        return stream << "openbox";
    case WindowManagerChoice::xfwm4:
        return stream << "xfwm4";
    case WindowManagerChoice::i3:
        return stream << "i3";
    case WindowManagerChoice::kwin:
        return stream << "kwin";
    case WindowManagerChoice::blurringKwin:
        return stream << "blurringKwin";
    }
    return stream;
}

WindowManager::WindowManager(WindowManagerChoice choice, XConnection& connection,
                             const TemporaryDirectory& directory, const Environment& environment)
{
    forgetAnnouncement(connection);
    process_.emplace(managerCommand(choice, directory), environment);
    connection.waitUntil("a window manager", [&] {
        if (!process_->isRunning())
            throw DesktopFailure(process_->name() + " ended; it said: " + process_->errorOutput());
        return isRunning(connection);
    });
    if (choice == WindowManagerChoice::openbox)
        connection.waitUntil("openbox to be ready for windows", [&] {
            return !connection.propertyItems(connection.root(), readyProperty).empty();
        });
    if (composites(choice))
        connection.waitUntil(process_->name() + " to composite the screen",
                             [&] { return connection.selectionOwner("_NET_WM_CM_S0") != XCB_WINDOW_NONE; });
}

bool WindowManager::switchesByKeys(WindowManagerChoice choice)
{
    return choice == WindowManagerChoice::openbox || choice == WindowManagerChoice::i3;
}

bool WindowManager::isRunning(XConnection& connection)
{
    const auto announced = connection.propertyItems(connection.root(), "_NET_SUPPORTING_WM_CHECK");
    if (announced.empty())
        return false;
    return connection.propertyItems(announced.front(), "_NET_SUPPORTING_WM_CHECK") == announced;
}

void WindowManager::kill()
{
    process_.value().kill();
}

} // namespace tessel::desktop
