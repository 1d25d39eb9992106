// The word processor of LibreOffice.

#include "ApplicationTest.h"

namespace tessel::desktop {

namespace {

class OfficeTest : public ApplicationTest {};

TEST_F(OfficeTest, PlainAndFormattedTextOfADocumentOutliveLibreOffice)
{
    // What it says for the first time after a copy and what it says later differ a little. So this is its
    // first word when nobody else asks.
    endProgram();
    Application writer(
        desktop_,
        libreOfficeWriter(desktop_, "<p>Zażółć <b>bold</b> <i>italic</i> 🦊 漢字</p><p>end</p>"));
    writer.copy();
    const auto offered = read({"UTF8_STRING", "text/html", "text/rtf"});
    startWithOneEntry();

    writer.copy();
    expectEntryCount(2);
    quitAndCompare(writer, offered);
    const std::string text = "Zażółć bold italic 🦊 漢字\nend";
    EXPECT_EQ(offered.at("UTF8_STRING"), text);
    EXPECT_THAT(offered.at("text/html"), testing::Optional(testing::HasSubstr("<b>bold</b> <i>italic</i>")));
    EXPECT_THAT(offered.at("text/rtf"), testing::Optional(testing::StartsWith("{\\rtf1")));
    {
        Application browser(desktop_, chromiumForPasting(desktop_));
        desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_v);
        browser.waitForTitle("B:bold I:italic");
    }
    expectTextPastes(text);
}

} // namespace

} // namespace tessel::desktop
