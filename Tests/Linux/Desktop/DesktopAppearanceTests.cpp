#include "Desktop/DesktopAppearance.h"

#include <gtest/gtest.h>

#include <QtCore/QElapsedTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

#include <memory>

#include "PortalStandIn.h"
#include "SessionBus.h"
#include "TemporaryDirectory.h"

namespace tessel {
namespace {

const QString common = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
const QString accentColor = QStringLiteral("accent-color");

constexpr unsigned noPreference = 0;
constexpr unsigned dark = 1;
constexpr unsigned light = 2;

class DesktopAppearanceTest : public testing::Test {
protected:
    ~DesktopAppearanceTest() override { QDBusConnection::disconnectFromBus(QStringLiteral("program")); }

    void launch()
    {
        appearance_ = std::make_unique<DesktopAppearance>(
            QDBusConnection::connectToBus(address(), QStringLiteral("program")));
        observation_ = appearance_->observe([this] { ++changes_; });
    }

    template <class Condition>
    bool runUntil(Condition condition)
    {
        QElapsedTimer elapsed;
        elapsed.start();
        while (!condition() && elapsed.elapsed() < 60'000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        return condition();
    }
    bool becomes(ColorScheme scheme)
    {
        return runUntil([&] { return appearance_->settings().colorScheme == scheme; });
    }
    static void setPaletteDark(bool isDark)
    {
        QPalette palette;
        palette.setColor(QPalette::Window, isDark ? QColor(30, 30, 30) : QColor(240, 240, 240));
        QGuiApplication::setPalette(palette);
    }
    /// Runs the loop until the portal's last word has certainly been read.
    void settle()
    {
        portal_->change(common, QStringLiteral("reduced-motion"), QVariant(1U));
        ASSERT_TRUE(runUntil([&] { return appearance_->settings().reducesMotion; }));
    }
    const AppearanceSettings& settings() const { return appearance_->settings(); }
    QString address() const { return QString::fromStdString(bus_.address()); }

    desktop::TemporaryDirectory directory_;
    desktop::SessionBus bus_{directory_, {}};
    int argumentCount_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    QGuiApplication application_{argumentCount_, arguments_};
    std::unique_ptr<PortalStandIn> portal_ = std::make_unique<PortalStandIn>(address());
    std::unique_ptr<DesktopAppearance> appearance_;
    Token observation_;
    int changes_ = 0;
};

TEST_F(DesktopAppearanceTest, IsThePortals)
{
    portal_->hold(common, colorScheme, dark);
    portal_->hold(common, accentColor, PortalStandIn::color(0.9, 0.2, 0.1));
    portal_->start();
    launch();
    EXPECT_EQ(settings().colorScheme, ColorScheme::light); // The palette's, until the answer is here.
    EXPECT_TRUE(becomes(ColorScheme::dark));
    EXPECT_EQ(settings().accentColor, (SystemColor{0.9, 0.2, 0.1}));
    EXPECT_FALSE(settings().reducesMotion);
    EXPECT_EQ(changes_, 1);
}

TEST_F(DesktopAppearanceTest, FollowsThePortalLive)
{
    portal_->hold(common, colorScheme, light);
    portal_->start();
    launch();
    portal_->change(common, colorScheme, dark);
    EXPECT_TRUE(becomes(ColorScheme::dark));
    portal_->change(common, accentColor, PortalStandIn::color(0.1, 0.2, 0.3));
    EXPECT_TRUE(runUntil([&] { return settings().accentColor == SystemColor{0.1, 0.2, 0.3}; }));
    portal_->change(common, colorScheme, light);
    EXPECT_TRUE(becomes(ColorScheme::light));
    EXPECT_EQ(changes_, 3);
}

TEST_F(DesktopAppearanceTest, AsksAPortalThatComesLater)
{
    launch();
    portal_->hold(common, colorScheme, dark);
    portal_->start();
    EXPECT_TRUE(becomes(ColorScheme::dark));
}

TEST_F(DesktopAppearanceTest, KeepsAChangeThatIsNewerThanTheAnswer)
{
    portal_->hold(common, colorScheme, light);
    portal_->keepAnswers();
    portal_->start();
    launch();
    ASSERT_TRUE(runUntil([&] { return portal_->requests() == 1; }));
    portal_->change(common, colorScheme, dark);
    ASSERT_TRUE(becomes(ColorScheme::dark));
    portal_->giveAnswers();
    ASSERT_TRUE(runUntil([&] { return portal_->requests() == 2; }));
    settle();
    EXPECT_EQ(settings().colorScheme, ColorScheme::dark);
    EXPECT_EQ(changes_, 2) << "something older was seen in between";
}

TEST_F(DesktopAppearanceTest, FollowsAPortalThatAnswersNothing)
{
    portal_->keepAnswers();
    portal_->start();
    launch();
    ASSERT_TRUE(runUntil([&] { return portal_->requests() == 1; }));
    EXPECT_EQ(settings(), AppearanceSettings{});
    setPaletteDark(true);
    EXPECT_TRUE(becomes(ColorScheme::dark));
    portal_->change(common, colorScheme, light);
    EXPECT_TRUE(becomes(ColorScheme::light));
}

TEST_F(DesktopAppearanceTest, IsThePalettesOnceThePortalIsGone)
{
    portal_->hold(common, colorScheme, dark);
    portal_->hold(common, accentColor, PortalStandIn::color(0.9, 0.2, 0.1));
    portal_->start();
    launch();
    ASSERT_TRUE(becomes(ColorScheme::dark));
    portal_.reset();
    EXPECT_TRUE(becomes(ColorScheme::light));
    EXPECT_EQ(settings(), AppearanceSettings{});
    portal_ = std::make_unique<PortalStandIn>(address());
    portal_->hold(common, colorScheme, dark);
    portal_->start();
    EXPECT_TRUE(becomes(ColorScheme::dark));
}

TEST_F(DesktopAppearanceTest, AsksThePortalThatFollowsOneThatAnsweredNothing)
{
    portal_->keepAnswers();
    portal_->start();
    launch();
    ASSERT_TRUE(runUntil([&] { return portal_->requests() == 1; }));
    portal_.reset();
    portal_ = std::make_unique<PortalStandIn>(address());
    portal_->hold(common, colorScheme, dark);
    portal_->start();
    EXPECT_TRUE(becomes(ColorScheme::dark));
}

TEST_F(DesktopAppearanceTest, IsThePalettesWhereThePortalTalksNonsense)
{
    portal_->talkNonsense();
    portal_->start();
    launch();
    settle();
    EXPECT_EQ(settings().colorScheme, ColorScheme::light);
    portal_->change(common, colorScheme, QStringLiteral("dark"));
    portal_->change(common, QStringLiteral("reduced-motion"), PortalStandIn::color(1, 1, 1));
    EXPECT_TRUE(runUntil([&] { return !settings().reducesMotion; }));
    EXPECT_EQ(settings(), AppearanceSettings{});
}

TEST_F(DesktopAppearanceTest, MovesWhereADesktopTalksNonsenseAboutMotion)
{
    portal_->hold(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations"),
                  PortalStandIn::color(0, 0, 0));
    portal_->hold(QStringLiteral("org.kde.kdeglobals.KDE"), QStringLiteral("AnimationDurationFactor"),
                  QStringLiteral("slow"));
    portal_->hold(common, colorScheme, dark);
    portal_->start();
    launch();
    ASSERT_TRUE(becomes(ColorScheme::dark));
    EXPECT_FALSE(settings().reducesMotion);
}

TEST_F(DesktopAppearanceTest, ReadsPortalsThatPutAVariantIntoAVariant)
{
    portal_->hold(common, colorScheme, QVariant::fromValue(QDBusVariant(dark)));
    portal_->start();
    launch();
    EXPECT_TRUE(becomes(ColorScheme::dark));
}

TEST_F(DesktopAppearanceTest, IsThePalettesWhereThereIsNoPreference)
{
    setPaletteDark(true);
    portal_->hold(common, colorScheme, noPreference);
    portal_->start();
    launch();
    EXPECT_EQ(settings().colorScheme, ColorScheme::dark);
    settle();
    EXPECT_EQ(settings().colorScheme, ColorScheme::dark);
    setPaletteDark(false);
    EXPECT_TRUE(becomes(ColorScheme::light));
}

TEST_F(DesktopAppearanceTest, HasNoAccentWhereThePortalSaysNoneOrNonsense)
{
    portal_->hold(common, accentColor, PortalStandIn::color(-1, -1, -1));
    portal_->start();
    launch();
    settle();
    EXPECT_EQ(settings().accentColor, std::nullopt);
    portal_->change(common, accentColor, QStringLiteral("red"));
    portal_->change(common, colorScheme, dark);
    EXPECT_TRUE(becomes(ColorScheme::dark));
    EXPECT_EQ(settings().accentColor, std::nullopt);
}

TEST_F(DesktopAppearanceTest, ReducesMotionWhereAnyDesktopSaysSo)
{
    portal_->start();
    launch();
    const auto saidBy = [&](const QString& group, const QString& key, const QVariant& value, bool expected) {
        portal_->change(group, key, value);
        return runUntil([&] { return settings().reducesMotion == expected; });
    };
    EXPECT_TRUE(saidBy(common, QStringLiteral("reduced-motion"), 1U, true));
    EXPECT_TRUE(saidBy(common, QStringLiteral("reduced-motion"), 0U, false));
    const QString gnome = QStringLiteral("org.gnome.desktop.interface");
    EXPECT_TRUE(saidBy(gnome, QStringLiteral("enable-animations"), false, true));
    EXPECT_TRUE(saidBy(gnome, QStringLiteral("enable-animations"), true, false));
}

TEST_F(DesktopAppearanceTest, ReducesMotionWherePlasmaMovesNothing)
{
    portal_->start();
    launch();
    const QString plasma = QStringLiteral("org.kde.kdeglobals.KDE");
    portal_->change(plasma, QStringLiteral("AnimationDurationFactor"), QStringLiteral("0"));
    EXPECT_TRUE(runUntil([&] { return settings().reducesMotion; }));
    portal_->change(plasma, QStringLiteral("AnimationDurationFactor"), QStringLiteral("0.5"));
    EXPECT_TRUE(runUntil([&] { return !settings().reducesMotion; }));
}

TEST_F(DesktopAppearanceTest, IsThePalettesWithoutABus)
{
    DesktopAppearance alone(QDBusConnection(QStringLiteral("nobody")));
    EXPECT_EQ(alone.settings(), AppearanceSettings{});
}

} // namespace
} // namespace tessel
