#pragma once

#include <string>
#include <utility>

#include "Support/MacOSTest.h"

namespace tessel::test {

/// A test in which the appearance is read and followed.
class AppearanceTest : public MacOSTest {
protected:
    /// The scheme is the better match of two; the accent colour is taken to sRGB; motion is reduced or not.
    void expectAppearanceRead(const std::string& scheme = "NSAppearanceNameAqua", bool reducesMotion = false)
    {
        expectScheme(scheme);
        expectCall("[NSColor controlAccentColor]", Object{"accent"});
        expectCall("[NSColorSpace sRGBColorSpace]", Object{"sRGB"});
        expectCall("[accent colorUsingColorSpace:sRGB]", Object{"color"});
        expectCall("[color redComponent]", 0.25);
        expectCall("[color greenComponent]", 0.5);
        expectCall("[color blueComponent]", 1.0);
        expectMotion(reducesMotion);
    }

    void expectScheme(const std::string& scheme)
    {
        expectCall("[NSApplication sharedApplication]", Object{"application"});
        expectCall("[application effectiveAppearance]", Object{"appearance"});
        expectCall("[appearance bestMatchFromAppearancesWithNames:@[@\"NSAppearanceNameAqua\", "
                   "@\"NSAppearanceNameDarkAqua\"]]",
                   scheme);
    }

    void expectMotion(bool reducesMotion)
    {
        expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
        expectCall("[workspace accessibilityDisplayShouldReduceMotion]", reducesMotion);
    }

    void expectAppearanceObserved()
    {
        expectCall("[NSApplication sharedApplication]", Object{"application"});
        expectCall(
            "[application addObserver:observer forKeyPath:@\"effectiveAppearance\" options:0 context:NULL]");
        expectCall("[NSNotificationCenter defaultCenter]", Object{"center"});
        expectCall("[center addObserverForName:@\"NSSystemColorsDidChangeNotification\" object:nil queue:nil "
                   "usingBlock:^]",
                   Object{"colors"});
        expectCall("[NSWorkspace sharedWorkspace]", Object{"workspace"});
        expectCall("[workspace notificationCenter]", Object{"workspace center"});
        expectCall("[workspace center "
                   "addObserverForName:@\"NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification\" "
                   "object:nil queue:nil usingBlock:^]",
                   Object{"display options"});
    }

    void expectAppearanceLetGo()
    {
        expectCall("[workspace center removeObserver:display options]");
        expectCall("[center removeObserver:colors]");
        expectCall("[application removeObserver:observer forKeyPath:@\"effectiveAppearance\"]");
    }
};

} // namespace tessel::test
