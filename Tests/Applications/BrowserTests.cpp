// The browser Chromium.

#include "ApplicationTest.h"

namespace tessel::desktop {

namespace {

class BrowserTest : public ApplicationTest {};

TEST_F(BrowserTest, PlainAndFormattedTextOfAPageOutliveChromium)
{
    Application browser(
        desktop_, chromium(desktop_, "<h1>Zażółć gęślą jaźń</h1><p>plain <b>bold</b> <i>italic</i> &amp; "
                                     "<span style=\"color: #c00000\">red</span> 🦊 漢字</p>"
                                     "<pre>tab\tend\n  next line</pre>"));
    const auto offered = copyAndQuit(browser, {"UTF8_STRING", "text/html"});
    const std::string text =
        "Zażółć gęślą jaźń\nplain bold italic & red 🦊 漢字\n\ntab\tend\n  next line";
    EXPECT_EQ(offered.at("UTF8_STRING"), text);
    EXPECT_THAT(offered.at("text/html"), testing::Optional(testing::HasSubstr("<b>bold</b>")));
    expectTextPastes(text);
}

TEST_F(BrowserTest, APictureOfAPageOutlivesChromium)
{
    const auto picture = makeTestPicture(211, 97, 3);
    const auto file = desktop_.directory().path() / "picture.png";
    writePng(picture, file);
    Application browser(desktop_, chromiumCopyingPicture(desktop_, encodePng(picture)));
    const auto offered = copyAndQuit(browser, {"image/png"});
    EXPECT_EQ(decodePng(offered.at("image/png").value_or("")), picture);
    expectPicturePastes(file);
}

TEST_F(BrowserTest, APictureEntryPastesIntoChromiumWithTheSamePixels)
{
    const auto file = desktop_.directory().path() / "picture.png";
    writePng(makeTestPicture(211, 97, 3), file);
    std::string description;
    {
        ImageClient source(desktop_, "source");
        description = source.describe(file);
        source.copy(file);
        expectEntryCount(2);
    }
    Application browser(desktop_, chromiumForPasting(desktop_));
    choose(0);
    browser.waitForTitle(description);
}

} // namespace

} // namespace tessel::desktop
