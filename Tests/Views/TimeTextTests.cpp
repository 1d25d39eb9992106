#include <gtest/gtest.h>

#include <QtCore/QDateTime>
#include <QtCore/QLocale>

#include "Panel/TimeText.h"

namespace tessel::test {

namespace {

/// Writes times in locales of its own, and leaves the locale behind as it was.
class TimeText : public testing::Test {
protected:
    ~TimeText() override { QLocale::setDefault(before_); }

    /// The text of a local time of one day.
    static QString textOf(int hour, int minute, int second = 0)
    {
        const QDateTime moment(QDate(2026, 11, 21), QTime(hour, minute, second));
        return timeText(static_cast<double>(moment.toSecsSinceEpoch()));
    }

private:
    QLocale before_;
};

} // namespace

TEST_F(TimeText, IsHoursAndMinutesAsTheLocaleWritesThem)
{
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(textOf(15, 4, 59), QStringLiteral("15:04"));
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(textOf(15, 4, 59), QStringLiteral("15:04"));
    QLocale::setDefault(QLocale(QLocale::Finnish, QLocale::Finland));
    EXPECT_EQ(textOf(15, 4, 59), QStringLiteral("15.04"));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_TRUE(textOf(15, 4, 59).startsWith(QStringLiteral("3:04"))) << textOf(15, 4, 59).toStdString();
}

TEST_F(TimeText, TellsMinutesAndHalvesOfTheDayApartAndNoSecondsInAnyLocale)
{
    const auto locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    ASSERT_FALSE(locales.empty());
    for (const QLocale& locale : locales) {
        SCOPED_TRACE(locale.name().toStdString());
        QLocale::setDefault(locale);
        EXPECT_EQ(textOf(15, 4, 7), textOf(15, 4, 59));
        EXPECT_NE(textOf(15, 4), textOf(15, 5));
        EXPECT_NE(textOf(15, 4), textOf(16, 4));
        EXPECT_NE(textOf(15, 4), textOf(3, 4));
    }
}

} // namespace tessel::test
