// The settings and the about window of the running program follow the desktop's appearance while they are
// open.

#include <array>
#include <string>

#include "SecondaryWindowTest.h"
#include "SettingsPortal.h"

namespace tessel::desktop {

namespace {

using Scheme = SettingsPortal::Scheme;

constexpr Colour red{255, 0, 0};
constexpr Colour green{0, 255, 0};

/// The mean of all pixels: red, green and blue, 0 to 255 each.
std::array<double, 3> meanOf(const Picture& picture)
{
    std::array<double, 3> mean{};
    for (const Colour& colour : picture.pixels) {
        for (std::size_t part = 0; part < mean.size(); ++part)
            mean[part] += colour[part];
    }
    for (double& part : mean)
        part /= static_cast<double>(picture.pixels.size());
    return mean;
}

bool isLight(const std::array<double, 3>& mean)
{
    return mean[0] > 180 && mean[1] > 180 && mean[2] > 180;
}

bool isDark(const std::array<double, 3>& mean)
{
    return mean[0] < 80 && mean[1] < 80 && mean[2] < 80;
}

/// What an accent colour does to all pixels together, through the circle that has it.
bool isReddish(const std::array<double, 3>& mean)
{
    return mean[0] - mean[1] > 3;
}

bool isGreenish(const std::array<double, 3>& mean)
{
    return mean[1] - mean[0] > 3;
}

class AppearanceTest : public SecondaryWindowTest {
protected:
    /// Beside each other, so that neither is covered.
    void openBoth()
    {
        openSettings();
        openAbout();
        settings().moveTo({20, 100});
        about().moveTo({500, 100});
    }
    void waitUntilBothAre(const std::string& quality, bool (*hasQuality)(const std::array<double, 3>&))
    {
        for (const auto& subject : {settings(), about()}) {
            desktop_.connection().waitUntil("an open window to be " + quality,
                                            [&] { return hasQuality(meanOf(subject.picture())); });
        }
    }
    void expectBothToDrift()
    {
        for (auto subject : {settings(), about()})
            subject.waitUntilItDiffersFrom(subject.picture());
    }

    SettingsPortal portal_{desktop_};
};

TEST_F(AppearanceTest, OpenWindowsTurnDarkAndLightAgain)
{
    portal_.setColorScheme(Scheme::light);
    portal_.start();
    openBoth();
    waitUntilBothAre("light", isLight);
    portal_.setColorScheme(Scheme::dark);
    waitUntilBothAre("dark", isDark);
    portal_.setColorScheme(Scheme::light);
    waitUntilBothAre("light again", isLight);
}

TEST_F(AppearanceTest, OpenWindowsTakeOverTheAccentColour)
{
    portal_.setColorScheme(Scheme::dark);
    portal_.setAccentColor(red);
    portal_.start();
    openBoth();
    waitUntilBothAre("reddish", isReddish);
    portal_.setAccentColor(green);
    waitUntilBothAre("greenish", isGreenish);
}

TEST_F(AppearanceTest, ReducedMotionStopsTheBackgroundAndItsEndLetsItDriftAgain)
{
    portal_.start();
    openBoth();
    expectBothToDrift();
    portal_.setReducedMotion(true);
    // Nothing tells when the last frame has been painted; the circles rest for half of this where they turn.
    desktop_.connection().waitUntil("both windows to come to rest", [&] {
        const auto settingsBefore = settings().picture();
        const auto aboutBefore = about().picture();
        letTheProgramTick();
        letTheProgramTick();
        return settings().picture() == settingsBefore && about().picture() == aboutBefore;
    });
    portal_.setReducedMotion(false);
    expectBothToDrift();
}

TEST_F(AppearanceTest, APortalThatComesLaterCountsAndOneThatGoesDoesNot)
{
    openBoth();
    waitUntilBothAre("as light as the palette", isLight);
    std::optional<SettingsPortal> portal(std::in_place, desktop_);
    portal->setColorScheme(Scheme::dark);
    portal->start();
    waitUntilBothAre("dark", isDark);
    portal.reset();
    waitUntilBothAre("as light as the palette again", isLight);
}

} // namespace

} // namespace tessel::desktop
