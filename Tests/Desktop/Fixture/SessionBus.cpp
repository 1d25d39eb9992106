#include "SessionBus.h"

namespace tessel::desktop {

namespace {

/// No usual service directories: a program under test gets no helper that the desktop does not have.
std::string configuration(const std::filesystem::path& directory, const std::filesystem::path& services)
{
    return R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <keep_umask/>
  <listen>unix:dir=)" +
           directory.string() + R"(</listen>
  <servicedir>)" +
           services.string() + R"(</servicedir>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";
}

std::vector<std::string> daemonCommand(const TemporaryDirectory& directory)
{
    // Where a user's own installations put their services (D-Bus Specification, "Message Bus Starting
    // Services").
    const auto services = directory.makeDirectory("home/.local/share/dbus-1/services");
    const auto file = directory.write("session-bus.conf", configuration(directory.path(), services));
    return {"dbus-daemon", "--config-file=" + file.string(), "--nofork", "--nopidfile", "--print-address=1"};
}

} // namespace

SessionBus::SessionBus(const TemporaryDirectory& directory, const Environment& environment)
    : daemon_(daemonCommand(directory), environment)
    , address_(daemon_.waitForLine("unix:"))
{}

} // namespace tessel::desktop
