#include <gtest/gtest.h>

#include "X11/OpenCommand.h"

namespace tessel {
namespace {

constexpr const char* privacySettings =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

TEST(OpenCommand, webMailAndFileAddressesGoToXdgOpen)
{
    for (const char* url : {"https://example.org/a?b=c", "http://example.org", "mailto:a@example.org",
                            "file:///tmp/a b", "HTTPS://example.org"})
        EXPECT_EQ(commandToOpen(url, "GNOME"), (OpenCommand{"xdg-open", {url}})) << url;
}

TEST(OpenCommand, nothingElseReachesXdgOpen)
{
    for (const char* url :
         {"javascript:alert(1)", "ssh://host", "-h", "", "/etc/passwd", "--help:x", "https"})
        EXPECT_EQ(commandToOpen(url, "GNOME"), std::nullopt) << url;
}

TEST(OpenCommand, theSettingsAddressOpensTheDesktopsOwnPage)
{
    EXPECT_EQ(commandToOpen(privacySettings, "ubuntu:GNOME"),
              (OpenCommand{"gnome-control-center", {"universal-access"}}));
    EXPECT_EQ(commandToOpen(privacySettings, "KDE"), (OpenCommand{"systemsettings", {"kcm_access"}}));
    EXPECT_EQ(commandToOpen(privacySettings, "XFCE"), (OpenCommand{"xfce4-accessibility-settings", {}}));
}

TEST(OpenCommand, whereTheDesktopHasNoSuchPageNothingIsOpened)
{
    EXPECT_EQ(commandToOpen(privacySettings, ""), std::nullopt);
    EXPECT_EQ(commandToOpen(privacySettings, "i3"), std::nullopt);
    EXPECT_EQ(commandToOpen(privacySettings, ":::"), std::nullopt);
}

} // namespace
} // namespace tessel
