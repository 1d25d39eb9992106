#include <gtest/gtest.h>

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>

#include "Support/FakeAppearance.h"
#include "Windows/WindowTheme.h"

namespace tessel::test {

namespace {

class WindowThemeTest : public testing::Test {
protected:
    WindowThemeTest()
    {
        QObject::connect(&theme, &WindowTheme::didChange, &theme, [this] { ++changes; });
    }

    FakeAppearance appearance;
    WindowTheme theme{appearance};
    int changes = 0;
};

} // namespace

TEST_F(WindowThemeTest, TellsOfAChangeOnce)
{
    appearance.change({ColorScheme::dark, std::nullopt, false});
    EXPECT_EQ(changes, 1);
    QEvent paletteChange(QEvent::ApplicationPaletteChange);
    QCoreApplication::sendEvent(qGuiApp, &paletteChange);
    appearance.change({ColorScheme::dark, std::nullopt, false});
    EXPECT_EQ(changes, 1);
    appearance.change({ColorScheme::dark, std::nullopt, true});
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(theme.reducesMotion());
}

TEST_F(WindowThemeTest, TellsOfAPaletteThatChangesItsColors)
{
    const QPalette before = QGuiApplication::palette();
    QPalette changed = before;
    changed.setColor(QPalette::Window, before.color(QPalette::Window).darker(103));
    const QColor background = theme.colors().windowBackground;
    QGuiApplication::setPalette(changed);
    EXPECT_EQ(changes, 1);
    EXPECT_NE(theme.colors().windowBackground, background);
    QGuiApplication::setPalette(before);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(theme.colors().windowBackground, background);
}

} // namespace tessel::test
