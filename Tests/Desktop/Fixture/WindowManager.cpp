#include "WindowManager.h"

namespace tessel::desktop {

namespace {

/// New windows get the focus and a click raises: what people have. No key bindings, so that every key reaches
/// the programs under test.
constexpr std::string_view configuration = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <desktops><number>2</number><popupTime>0</popupTime></desktops>
  <keyboard></keyboard>
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

std::vector<std::string> managerCommand(const TemporaryDirectory& directory)
{
    const auto file = directory.write("openbox.xml", std::string(configuration));
    return {"openbox", "--sm-disable", "--config-file", file.string()};
}

bool isManaged(XConnection& connection)
{
    const auto announced = connection.propertyItems(connection.root(), "_NET_SUPPORTING_WM_CHECK");
    if (announced.empty())
        return false;
    return connection.propertyItems(announced.front(), "_NET_SUPPORTING_WM_CHECK") == announced;
}

} // namespace

WindowManager::WindowManager(XConnection& connection, const TemporaryDirectory& directory,
                             const Environment& environment)
    : process_(managerCommand(directory), environment)
{
    connection.waitUntil("a window manager", [&] { return isManaged(connection); });
}

} // namespace tessel::desktop
