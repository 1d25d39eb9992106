#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtGui/QImage>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QScrollBar>

#include <array>
#include <optional>
#include <set>

#include "Support/PanelDesktop.h"
#include "Support/Translations.h"
#include "Support/WindowOf.h"
#include "Updates/UpdateWindow.h"
#include "Updates/UpdateWindowDriver.h"
#include "Windows/ContentScrollArea.h"

namespace tessel::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

UpdateIsFound found()
{
    return {{"2.0", "2.0", "", "", "What is new", "https://tessel-clipboard.example/get"}, "1.0"};
}

UpdateIsFound foundWithLongNotes()
{
    UpdateIsFound status = found();
    for (int line = 0; line < 200; ++line)
        status.item.notes += "\n• One thing more";
    return status;
}

/// Every status there is.
std::vector<UpdateStatus> allStatuses()
{
    std::vector<UpdateStatus> statuses = {UpdateIsSought(), ProgramIsUpToDate{"1.0"}, found(),
                                          foundWithLongNotes(), PackagesBringUpdates()};
    for (int failure = 0; failure <= static_cast<int>(UpdateFeedFailure::incomplete); ++failure)
        statuses.emplace_back(static_cast<UpdateFeedFailure>(failure));
    return statuses;
}

class UpdateWindowTest : public testing::Test {
protected:
    ~UpdateWindowTest() override
    {
        driver.close();
        runMainLoop();
    }

    void show(const UpdateStatus& status, UpdateOccasion occasion = UpdateOccasion::asked)
    {
        driver.show(status, occasion, [this](UpdateAnswer there) { answers.push_back(there); });
        runMainLoop();
    }
    UpdateWindow& window() const
    {
        if (driver.window() == nullptr)
            throw std::logic_error("There is no window.");
        return *driver.window();
    }
    std::vector<std::string> labels() const
    {
        std::vector<std::string> texts;
        for (const QLabel* label : window().findChildren<QLabel*>())
            texts.push_back(label->text().toStdString());
        return texts;
    }
    std::vector<std::string> buttons() const
    {
        std::vector<std::string> titles;
        for (const QAbstractButton* button : window().findChildren<QAbstractButton*>())
            titles.push_back(button->text().toStdString());
        return titles;
    }

    PanelDesktop desktop;
    UpdateWindowDriver driver{{desktop.theme, desktop.nativeWindows, *desktop.screens, *desktop.application}};
    std::vector<UpdateAnswer> answers;
};

} // namespace

TEST_F(UpdateWindowTest, SaysThatItLooks)
{
    show(UpdateIsSought());
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Software Update"));
    EXPECT_THAT(labels(), ElementsAre("Checking for updates…"));
    EXPECT_THAT(buttons(), ElementsAre("Cancel"));
    EXPECT_NE(window().findChild<QProgressBar*>(), nullptr);
}

TEST_F(UpdateWindowTest, SaysThatThereIsNothingNewer)
{
    show(ProgramIsUpToDate{"1.0"});
    EXPECT_THAT(labels(),
                ElementsAre("You're up to date!", "Tessel Clipboard 1.0 is the newest version available."));
    EXPECT_THAT(buttons(), ElementsAre("OK"));
    EXPECT_EQ(window().findChild<QProgressBar*>(), nullptr);
}

TEST_F(UpdateWindowTest, ShowsANewVersionAndThreeAnswers)
{
    show(found());
    EXPECT_THAT(labels(), ElementsAre("A new version of Tessel Clipboard is available!",
                                      "Tessel Clipboard 2.0 is now available. You have 1.0.", "What is new"));
    EXPECT_THAT(buttons(), ElementsAre("Skip This Version", "Remind Me Later", "Open Download Page"));
}

TEST_F(UpdateWindowTest, OffersNoPageThatIsNotThere)
{
    UpdateIsFound status = found();
    status.item.downloadPage.clear();
    show(status);
    EXPECT_THAT(buttons(), ElementsAre("Skip This Version", "Remind Me Later"));
    EXPECT_THAT(
        labels(),
        Contains("Tessel Clipboard 2.0 is now available. You have 1.0. Get it where you got this one."));
}

TEST_F(UpdateWindowTest, ShowsNotesAsPlainText)
{
    UpdateIsFound status = found();
    status.item.notes = "<b>bold</b> <img src='https://x.example/'>";
    show(status);
    EXPECT_THAT(labels(), Contains(status.item.notes));
    for (const QLabel* label : window().findChildren<QLabel*>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST_F(UpdateWindowTest, SaysEachFailureInItsOwnWords)
{
    std::set<std::vector<std::string>> texts;
    for (const UpdateStatus& status : allStatuses()) {
        show(status);
        EXPECT_TRUE(texts.insert(labels()).second) << labels().at(0);
        for (const std::string& text : labels())
            EXPECT_THAT(text, Not(IsEmpty()));
    }
}

TEST_F(UpdateWindowTest, EachButtonIsAnAnswer)
{
    const std::array<std::pair<const char*, UpdateAnswer>, 3> choices = {
        {{"Skip This Version", UpdateAnswer::skip},
         {"Remind Me Later", UpdateAnswer::dismiss},
         {"Open Download Page", UpdateAnswer::openDownloadPage}}};
    for (const auto& [title, answer] : choices) {
        answers.clear();
        show(found());
        button(window(), title).click();
        button(window(), title).click();
        EXPECT_THAT(answers, ElementsAre(answer)) << title;
    }
}

TEST_F(UpdateWindowTest, EscapeAndTheTitleBarDismiss)
{
    for (const UpdateStatus& status : allStatuses()) {
        answers.clear();
        show(status);
        QTest::keyClick(&window(), Qt::Key_Escape);
        EXPECT_THAT(answers, ElementsAre(UpdateAnswer::dismiss));
        answers.clear();
        show(status);
        window().close();
        EXPECT_THAT(answers, ElementsAre(UpdateAnswer::dismiss));
    }
}

TEST_F(UpdateWindowTest, ReturnPressesTheProminentButton)
{
    show(found());
    QTest::keyClick(&window(), Qt::Key_Return);
    EXPECT_THAT(answers, ElementsAre(UpdateAnswer::openDownloadPage));
}

TEST_F(UpdateWindowTest, ReturnDoesNotCancel)
{
    show(UpdateIsSought());
    QTest::keyClick(&window(), Qt::Key_Return);
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(UpdateWindowTest, OpenedByItselfItTakesNeitherFocusNorReturn)
{
    desktop.log->forget();
    show(found(), UpdateOccasion::unasked);
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(window().testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_THAT(desktop.log->effects(), Not(Contains("application.activate ignoring others")));
    QTest::keyClick(&window(), Qt::Key_Return);
    EXPECT_THAT(answers, IsEmpty());
    driver.bringForward();
    EXPECT_THAT(desktop.log->effects(), Contains("application.activate ignoring others"));
    QTest::keyClick(&window(), Qt::Key_Return);
    EXPECT_THAT(answers, ElementsAre(UpdateAnswer::openDownloadPage));
}

TEST_F(UpdateWindowTest, AskedForItTakesTheFocus)
{
    desktop.log->forget();
    show(UpdateIsSought());
    EXPECT_THAT(desktop.log->effects(), Contains("application.activate ignoring others"));
    EXPECT_EQ(window().focusWidget(), &window()) << "a ring would be around a button";
}

TEST_F(UpdateWindowTest, IsOneWindowForOneLook)
{
    show(UpdateIsSought());
    const QPointer<QWidget> first = &window();
    show(found());
    EXPECT_EQ(&window(), first);
    EXPECT_EQ(window().findChild<QProgressBar*>(), nullptr);
    driver.close();
    EXPECT_EQ(driver.window(), nullptr);
    EXPECT_FALSE(first->isVisible());
    runMainLoop();
    EXPECT_TRUE(first.isNull());
}

TEST_F(UpdateWindowTest, GrowsAroundItsMiddleAndStaysOnTheScreen)
{
    show(UpdateIsSought());
    const QRect screen = window().screen()->availableGeometry();
    window().move(screen.center() - window().rect().center());
    const QPoint middle = window().geometry().center();
    show(foundWithLongNotes());
    EXPECT_NEAR(window().geometry().center().x(), middle.x(), 2);
    EXPECT_NEAR(window().geometry().center().y(), middle.y(), 2);
    show(UpdateIsSought());
    for (const QPoint corner : {screen.topLeft(), screen.bottomRight() - window().rect().bottomRight()}) {
        show(UpdateIsSought());
        window().move(corner);
        show(foundWithLongNotes());
        EXPECT_TRUE(screen.contains(window().geometry())) << corner.x() << " " << corner.y();
    }
}

TEST_F(UpdateWindowTest, ScrollsLongNotesByKeys)
{
    show(foundWithLongNotes());
    QScrollBar* bar = window().findChild<ContentScrollArea*>()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    QTest::keyClick(&window(), Qt::Key_Down);
    const int step = bar->value();
    EXPECT_GT(step, 0);
    QTest::keyClick(&window(), Qt::Key_PageDown);
    EXPECT_GT(bar->value(), step);
    QTest::keyClick(&window(), Qt::Key_End);
    EXPECT_EQ(bar->value(), bar->maximum());
    QTest::keyClick(&window(), Qt::Key_Home);
    EXPECT_EQ(bar->value(), 0);
}

TEST_F(UpdateWindowTest, HasRoomForEveryTextInEachLanguage)
{
    for (const char* language : {"en", "de"}) {
        const Translations translations({QString::fromLatin1(language)});
        for (const UpdateStatus& status : allStatuses()) {
            show(status);
            for (const QLabel* label : window().findChildren<QLabel*>())
                EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                    << label->text().toStdString();
            for (const QAbstractButton* button : window().findChildren<QAbstractButton*>()) {
                EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
                EXPECT_TRUE(
                    window().rect().contains(QRect(button->mapTo(&window(), QPoint()), button->size())))
                    << button->text().toStdString();
            }
            EXPECT_LE(window().height(), 480);
        }
    }
}

TEST_F(UpdateWindowTest, FollowsLightAndDark)
{
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        desktop.appearance.change({scheme, std::nullopt, false});
        show(found());
        const QColor background = drawn(window()).pixelColor(2, 2);
        EXPECT_EQ(background, desktop.theme.colors().windowBackground);
        EXPECT_EQ(background.lightness() < 128, scheme == ColorScheme::dark);
    }
}

TEST_F(UpdateWindowTest, IsAWindowWithAProgressBarToAssistivePrograms)
{
    show(UpdateIsSought());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window())->role(), QAccessible::Window);
    auto* bar = QAccessible::queryAccessibleInterface(window().findChild<QProgressBar*>());
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    EXPECT_EQ(bar->text(QAccessible::Name), QStringLiteral("Checking for updates…"));
}

TEST_F(UpdateWindowTest, RestsForWhoWantsNothingToMove)
{
    desktop.appearance.change({ColorScheme::light, std::nullopt, true});
    show(UpdateIsSought());
    QWidget& bar = *window().findChild<QProgressBar*>();
    const QImage before = drawn(bar);
    // Time passes; how much of it does not matter.
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_TRUE(waitUntil([&elapsed] { return elapsed.elapsed() > 300; }));
    EXPECT_EQ(drawn(bar), before);
    desktop.appearance.change({ColorScheme::light, std::nullopt, false});
    EXPECT_TRUE(waitUntil([&] { return drawn(bar) != before; }));
}

} // namespace tessel::test
