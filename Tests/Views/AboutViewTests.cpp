#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QUrl>
#include <QtGui/QAccessible>
#include <QtGui/QImage>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>

#include "Support/InkExtent.h"
#include "Support/PanelDesktop.h"
#include "Support/WindowOf.h"
#include "Windows/AboutView.h"
#include "Windows/AnimatedBackground.h"
#include "Windows/ChromelessWindow.h"
#include "Windows/LinkButton.h"
#include "Windows/Website.h"

namespace tessel::test {

namespace {

using testing::ElementsAre;
using testing::EndsWith;

class AboutViewTest : public testing::Test {
protected:
    /// Shown and drawn for the first time, without a turn of the main loop.
    void show()
    {
        desktop.state->showAboutWindow();
        drawn(view());
    }
    ChromelessWindow& window() const
    {
        return dynamic_cast<ChromelessWindow&>(windowOf(desktop.state->aboutController));
    }
    AboutView& view() const { return *window().findChild<AboutView*>(); }
    LinkButton& link() const { return *window().findChild<LinkButton*>(); }

    /// From the top, and in a line from its start.
    std::vector<std::string> texts() const
    {
        std::vector<std::string> result;
        for (const QLabel* label : view().findChildren<QLabel*>())
            result.push_back(label->text().toStdString());
        return result;
    }

    /// The content that many seconds after its entrance has begun, over nothing.
    QImage contentAfter(double seconds) const
    {
        constexpr double millisecondsPerSecond = 1000;
        if (view().entrance().state() == QAbstractAnimation::Running)
            view().entrance().pause();
        view().entrance().setCurrentTime(static_cast<int>(std::lround(seconds * millisecondsPerSecond)));
        return drawn(view());
    }

    PanelDesktop desktop;
};

/// The rows with anything on them.
Extent inkedRows(const QImage& image, const QRect& part)
{
    Extent rows = {part.bottom() + 1, part.top() - 1};
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0)
                rows = {std::min(rows.left, y), std::max(rows.right, y)};
        }
    }
    return rows;
}

int mostOpaque(const QImage& image, const QRect& part)
{
    int result = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            result = std::max(result, qAlpha(image.pixel(x, y)));
    }
    return result;
}

} // namespace

TEST_F(AboutViewTest, SaysWhatThisIsAndHowItIsUsed)
{
    show();
    EXPECT_THAT(texts(), ElementsAre("Tessel Clipboard", "Tessel clipboard history for macOS.",
                                     "Current beta supports text and images.", "Keyboard Shortcuts",
                                     "Open history", "Cmd + Shift + V", "Navigate items", "Up / Down",
                                     "Paste selected", "Enter", "Close panel", "Esc"));
}

TEST_F(AboutViewTest, ShowsTheShortcutThatIsChosenWhileItIsOpen)
{
    show();
    desktop.state->hotKeyPreset = HotKeyPreset::ctrlShiftV;
    EXPECT_TRUE(waitUntil([&] { return texts().at(5) == "Ctrl + Shift + V"; }));
    desktop.state->hotKeyPreset = HotKeyPreset::cmdOptionV;
    EXPECT_TRUE(waitUntil([&] { return texts().at(5) == "Cmd + Option + V"; }));
}

TEST_F(AboutViewTest, HasItsRootAsHighAsItsContentInTheMiddleOfTheWindow)
{
    show();
    EXPECT_EQ(window().size(), QSize(420, 340));
    const QRect root = window().background().geometry();
    EXPECT_EQ(root.width(), 420);
    EXPECT_EQ(root.height(), view().sizeHint().height());
    EXPECT_LE(std::abs(root.top() - (340 - root.bottom() - 1)), 1);
    EXPECT_GE(root.top(), 0);
}

TEST_F(AboutViewTest, OpensTheWebsite)
{
    show();
    EXPECT_EQ(link().text().toStdString(), website::hostName);
    QTest::mouseClick(&link(), Qt::LeftButton);
    link().setFocus();
    QTest::keyClick(&link(), Qt::Key_Return);
    QTest::keyClick(&link(), Qt::Key_Space);
    const std::string address(website::address);
    EXPECT_THAT(desktop.workspace->openedURLs(), ElementsAre(address, address, address));
    EXPECT_TRUE(window().isVisible());
}

TEST(Website, IsShownByTheHostInItsAddress)
{
    const auto text = [](std::string_view utf8) { return QString::fromStdString(std::string(utf8)); };
    EXPECT_FALSE(website::hostName.empty());
    EXPECT_THAT(QUrl(text(website::address)).host().toStdString(), EndsWith(std::string(website::hostName)));
}

TEST_F(AboutViewTest, TellsAssistiveProgramsOfALinkAndAButton)
{
    show();
    QAccessibleInterface* accessibleLink = QAccessible::queryAccessibleInterface(&link());
    EXPECT_EQ(accessibleLink->role(), QAccessible::Link);
    EXPECT_EQ(accessibleLink->text(QAccessible::Name).toStdString(), website::hostName);
    EXPECT_TRUE(accessibleLink->state().focusable);
    EXPECT_FALSE(accessibleLink->state().checkable);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window())->role(), QAccessible::Window);
    accessibleLink->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(desktop.workspace->openedURLs().size(), 1U);

    QAccessibleInterface* close = QAccessible::queryAccessibleInterface(&button(window(), "Close"));
    EXPECT_EQ(close->role(), QAccessible::Button);
    EXPECT_EQ(close->text(QAccessible::Name), QStringLiteral("Close"));
}

TEST_F(AboutViewTest, IsWalkedThroughByTab)
{
    show();
    window().activateWindow();
    ASSERT_TRUE(waitUntil([&] { return window().isActiveWindow(); }));
    QTest::keyClick(&window(), Qt::Key_Tab);
    EXPECT_EQ(window().focusWidget(), &link());
    QTest::keyClick(&window(), Qt::Key_Tab);
    EXPECT_EQ(window().focusWidget(), &button(window(), "Close"));
    QTest::keyClick(window().focusWidget(), Qt::Key_Space);
    EXPECT_EQ(desktop.state->aboutController, nullptr);
}

TEST_F(AboutViewTest, IsClosedByReturnOnItsButton)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        show();
        QTest::keyClick(&button(window(), "Close"), key);
        EXPECT_EQ(desktop.state->aboutController, nullptr) << key;
        runMainLoop();
    }
}

TEST_F(AboutViewTest, LeavesEscapeToTheMonitorOfTheApplication)
{
    show();
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_NE(desktop.state->aboutController, nullptr);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(AboutViewTest, BeginsInvisible)
{
    show();
    const QImage start = contentAfter(0);
    EXPECT_EQ(mostOpaque(start, start.rect()), 0);
}

TEST_F(AboutViewTest, EntersAsASpringMoves)
{
    show();
    const QRect header(0, 0, 420, 60);
    const QRect besideTexts(390, 60, 6, 100); // Only the card begins there.
    const QImage end = contentAfter(10);
    const Extent headerEnd = inkedRows(end, header);
    const Extent cardEnd = inkedRows(end, besideTexts);
    const int opaque = mostOpaque(end, header);
    EXPECT_EQ(opaque, 217); // 0.85 of 255: the light scheme's primary text.

    // A second window of the same kind, which has not entered yet.
    button(window(), "Close").click();
    show();
    const SpringCurve curve(0.55, 0.88);
    double half = 0;
    while (curve.at(half) < 0.5)
        half += 0.001;
    const QImage middle = contentAfter(half);
    EXPECT_NEAR(mostOpaque(middle, header), opaque * 0.5, 2);
    EXPECT_NEAR(inkedRows(middle, header).left, headerEnd.left - 4, 1);
    const Extent cardMiddle = inkedRows(middle, besideTexts);
    EXPECT_NEAR(cardMiddle.left, cardEnd.left + 5, 1);
}

TEST_F(AboutViewTest, SettlesByItself)
{
    const auto hasEffect = [](const QWidget* part) { return part->graphicsEffect() != nullptr; };
    show();
    EXPECT_TRUE(std::ranges::any_of(view().findChildren<QWidget*>(), hasEffect));
    EXPECT_TRUE(waitUntil([&] { return view().entrance().state() == QAbstractAnimation::Stopped; }));
    // What has none is drawn directly.
    EXPECT_TRUE(std::ranges::none_of(view().findChildren<QWidget*>(), hasEffect));
    EXPECT_GT(mostOpaque(drawn(view()), view().rect()), 200);
}

TEST_F(AboutViewTest, EntersAnewOnlyAfterClose)
{
    show();
    ASSERT_TRUE(waitUntil([&] { return view().entrance().state() == QAbstractAnimation::Stopped; }));
    window().close(); // The window manager asks for it.
    show();
    EXPECT_EQ(view().entrance().state(), QAbstractAnimation::Stopped);
    EXPECT_GT(mostOpaque(drawn(view()), view().rect()), 200);

    button(window(), "Close").click();
    show();
    EXPECT_EQ(view().entrance().state(), QAbstractAnimation::Running);
}

TEST_F(AboutViewTest, IsThereAtOnceWhereTheUserWantsLittleMotion)
{
    desktop.appearance.change({ColorScheme::dark, std::nullopt, true});
    show();
    EXPECT_EQ(view().entrance().state(), QAbstractAnimation::Stopped);
    EXPECT_GT(mostOpaque(drawn(view()), view().rect()), 200);
}

TEST_F(AboutViewTest, EntersOnlyWhenItIsSeen)
{
    desktop.state->showAboutWindow();
    EXPECT_EQ(view().entrance().state(), QAbstractAnimation::Stopped);
    const QImage unseen = drawn(view());
    EXPECT_EQ(mostOpaque(unseen, unseen.rect()), 0);
    EXPECT_EQ(view().entrance().state(), QAbstractAnimation::Running);
}

TEST_F(AboutViewTest, IsThereAtOnceWhenTheUserWantsLittleMotionMeanwhile)
{
    show();
    ASSERT_EQ(view().entrance().state(), QAbstractAnimation::Running);
    desktop.appearance.change({ColorScheme::light, std::nullopt, true});
    EXPECT_EQ(view().entrance().state(), QAbstractAnimation::Stopped);
    EXPECT_GT(mostOpaque(drawn(view()), view().rect()), 200);
}

} // namespace tessel::test
