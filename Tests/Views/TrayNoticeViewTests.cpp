#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>

#include "Support/PanelDesktop.h"
#include "Windows/TrayNoticeView.h"

namespace tessel::test {

namespace {

class TrayNoticeViewTest : public testing::Test {
protected:
    TrayNoticeView make(HotKeyPreset preset = defaultHotKeyPreset)
    {
        return TrayNoticeView(preset, desktop.theme, [this] { ++openedSettings; });
    }
    static QAbstractButton& button(const QWidget& window, const QString& text)
    {
        for (auto* button : window.findChildren<QAbstractButton*>()) {
            if (button->text() == text)
                return *button;
        }
        throw std::runtime_error("no such button");
    }

    PanelDesktop desktop;
    int openedSettings = 0;
};

} // namespace

TEST_F(TrayNoticeViewTest, NamesThePresentKeysAsKeyboardsHereDo)
{
    const auto firstText = [this](HotKeyPreset preset) {
        return make(preset).findChildren<QLabel*>().front()->text().toStdString();
    };
    EXPECT_EQ(firstText(HotKeyPreset::cmdShiftV), "Press Super+Shift+V to open the history.");
    EXPECT_EQ(firstText(HotKeyPreset::ctrlShiftV), "Press Ctrl+Shift+V to open the history.");
    EXPECT_EQ(firstText(HotKeyPreset::cmdOptionV), "Press Super+Alt+V to open the history.");
}

TEST_F(TrayNoticeViewTest, DoesNotAskForTheFocus)
{
    EXPECT_TRUE(make().testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST_F(TrayNoticeViewTest, ItsButtonsCloseItAndOneOpensTheSettings)
{
    for (const QString& text : {QStringLiteral("OK"), QStringLiteral("Open Settings")}) {
        TrayNoticeView notice = make();
        notice.show();
        EXPECT_TRUE(notice.isVisible());
        button(notice, text).click();
        EXPECT_FALSE(notice.isVisible());
    }
    EXPECT_EQ(openedSettings, 1);
}

TEST_F(TrayNoticeViewTest, EscapeClosesIt)
{
    TrayNoticeView notice = make();
    notice.show();
    QTest::keyClick(&notice, Qt::Key_Escape);
    EXPECT_FALSE(notice.isVisible());
}

TEST_F(TrayNoticeViewTest, AllItsTextHasRoom)
{
    TrayNoticeView notice = make();
    notice.show();
    for (const auto* label : notice.findChildren<QLabel*>())
        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
}

} // namespace tessel::test
