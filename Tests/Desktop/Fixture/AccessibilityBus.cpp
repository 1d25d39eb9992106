#include "AccessibilityBus.h"

#include "BusClient.h"

namespace tessel::desktop {

namespace {

constexpr const char* busName = "org.a11y.Bus";

std::vector<std::string> command(AccessibilityBus::Status status)
{
    const bool isEnabled = status == AccessibilityBus::Status::enabled;
    return {"/usr/libexec/at-spi-bus-launcher", "--launch-immediately", isEnabled ? "--a11y=1" : "--a11y=0"};
}

} // namespace

AccessibilityBus::AccessibilityBus(Desktop& desktop, Status status)
    : desktop_(desktop)
    , launcher_(command(status), desktop.environment())
{
    BusClient client(desktop.busAddress());
    desktop.connection().waitUntil("the accessibility bus", [&] { return client.nameHasOwner(busName); });
}

void AccessibilityBus::setStatus(Status status)
{
    BusClient client(desktop_.busAddress());
    client.setProperty(busName, "/org/a11y/bus", "org.a11y.Status", "IsEnabled", status == Status::enabled);
}

} // namespace tessel::desktop
