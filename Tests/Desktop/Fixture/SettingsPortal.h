#pragma once

#include <string>

#include "Desktop.h"

namespace tessel::desktop {

/// The settings portal of a desktop (`org.freedesktop.portal.Settings`), as far as it tells how windows are
/// to look. What it is told before its start is there from the start on; later everybody is told. With the
/// end of this object it is gone.
class SettingsPortal {
public:
    enum class Scheme { noPreference, dark, light };

    /// There must be a session bus.
    explicit SettingsPortal(Desktop& desktop);

    /// Takes the portal's name on the session bus, and returns when it has it.
    void start();
    void setColorScheme(Scheme scheme);
    void setAccentColor(const Colour& colour);
    void setReducedMotion(bool isReduced);
    /// Ends it as a crash does.
    void kill() { process_.kill(); }

private:
    void tell(const std::string& line);

    ChildProcess process_;
};

} // namespace tessel::desktop
