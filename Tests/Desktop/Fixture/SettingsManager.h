#pragma once

#include <string>

#include "XConnection.h"

namespace tessel::desktop {

/// The settings of a desktop that programs follow while they run (XSETTINGS), as far as the resolution of
/// fonts, which says the scale.
class SettingsManager {
public:
    explicit SettingsManager(const std::string& displayName);

    /// In dots per inch; 96 is a scale of 1.
    void setResolution(int dotsPerInch);

private:
    XConnection connection_;
    xcb_window_t window_;
    std::uint32_t serial_ = 0;
};

} // namespace tessel::desktop
