// The desktop itself, without the program: what the other tests rely on is seen working here.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <signal.h>

#include "ClientFiles.h"
#include "ClipboardOwner.h"
#include "ClipboardReader.h"
#include "Desktop.h"
#include "Heartbeat.h"
#include "ImageClient.h"
#include "TextClient.h"

namespace tessel::desktop {

namespace {

using namespace std::chrono_literals;
using testing::Contains;

TEST(ChildProcessTest, TalksToItsChildAndEndsIt)
{
    ChildProcess child({"cat"}, {{"PATH", "/usr/bin:/bin"}});
    child.writeLine("hello");
    EXPECT_EQ(child.waitForLine("he"), "hello");
    EXPECT_TRUE(child.isRunning());
    child.end();
    EXPECT_FALSE(child.isRunning());
}

TEST(ChildProcessTest, SaysWhatItWaitedFor)
{
    ChildProcess child({"cat"}, {{"PATH", "/usr/bin:/bin"}});
    try {
        child.waitForLine("a line that never comes", Deadline(50ms));
        FAIL() << "the wait did not end";
    } catch (const DesktopFailure& failure) {
        EXPECT_NE(std::string(failure.what()).find("a line that never comes"), std::string::npos);
    }
}

TEST(ChildProcessTest, ReportsHowItEnded)
{
    const auto result =
        runCommand({"sh", "-c", "echo out; echo err >&2; exit 7"}, {{"PATH", "/usr/bin:/bin"}});
    EXPECT_EQ(result.status.number, 7);
    EXPECT_EQ(result.output, "out\n");
    EXPECT_EQ(result.errorOutput, "err\n");
}

TEST(PictureTest, SurvivesEncoding)
{
    const auto picture = makeTestPicture(61, 47, 3);
    EXPECT_EQ(decodePng(encodePng(picture)), picture);
}

class FixtureTest : public testing::Test {
protected:
    Desktop desktop_;
};

TEST_F(FixtureTest, EditorsReceiveRealKeys)
{
    for (const auto kind : {TextClientKind::gtk, TextClientKind::qt}) {
        TextClient editor(desktop_, kind);
        desktop_.keyboard().type("Hello, World!\n(two)");
        editor.waitForText("Hello, World!\n(two)");
        EXPECT_FALSE(desktop_.keyboard().isAnyKeyDown());
    }
}

TEST_F(FixtureTest, ACopyInOneEditorPastesIntoAnother)
{
    const std::string text = "Zażółć gęślą\tjaźń\n🦊 émoji";
    TextClient source(desktop_, TextClientKind::gtk);
    source.copyByKeys(text);
    TextClient target(desktop_, TextClientKind::qt);
    target.pressPasteKeys();
    target.waitForText(text);
    EXPECT_EQ(target.pasteCount(), 1);
    EXPECT_EQ(source.pasteCount(), 0);
}

TEST_F(FixtureTest, TheOwnerServesTextInPiecesToo)
{
    ClipboardOwner owner(desktop_.displayName());
    ClipboardReader reader(desktop_.displayName());
    owner.copyText("short");
    EXPECT_EQ(reader.readText(), "short");
    EXPECT_EQ(owner.requestCount("UTF8_STRING"), 1);

    std::string large(3'000'000, 'x');
    large.back() = 'y';
    owner.copyText(large);
    EXPECT_EQ(owner.requestCount("UTF8_STRING"), 0);
    EXPECT_EQ(reader.readText(), large);
    EXPECT_THAT(reader.targets(), Contains("text/plain;charset=utf-8"));
    EXPECT_EQ(reader.read("image/png"), std::nullopt);
}

TEST_F(FixtureTest, APictureCopiedInOneProgramPastesIntoAnother)
{
    const auto file = desktop_.directory().path() / "picture.png";
    writePng(makeTestPicture(200, 150, 1), file);
    ImageClient source(desktop_, "source");
    source.copy(file);
    ImageClient target(desktop_, "target");
    desktop_.keyboard().chord({XKB_KEY_Control_L}, XKB_KEY_v);
    EXPECT_EQ(target.waitForPastedPicture(), source.describe(file));
}

TEST_F(FixtureTest, AHeldKeyRepeatsAsItDoesForAPerson)
{
    TextClient editor(desktop_, TextClientKind::gtk);
    desktop_.keyboard().press(XKB_KEY_a);
    desktop_.connection().waitUntil("a repeated key", [&] { return editor.text().size() > 3; });
    desktop_.keyboard().release(XKB_KEY_a);
}

TEST_F(FixtureTest, TheHeartbeatSeesABlockedMainThread)
{
    const BusAddress busy{"org.tessel.Busy", "/heartbeat"};
    const BusAddress idle{"org.tessel.Idle", "/heartbeat"};
    ChildProcess busyProgram({clientFile("qt-heartbeat").string(), busy.name}, desktop_.environment());
    ChildProcess idleProgram({clientFile("qt-heartbeat").string(), idle.name}, desktop_.environment());
    busyProgram.waitForLine("ready");
    idleProgram.waitForLine("ready");

    Heartbeat busyHeartbeat(desktop_.busAddress(), busy);
    Heartbeat idleHeartbeat(desktop_.busAddress(), idle);
    busyProgram.writeLine("block 1000");
    busyProgram.waitForLine("ok");
    const auto busyReport = busyHeartbeat.finish();
    const auto idleReport = idleHeartbeat.finish();
    EXPECT_GE(busyReport.longest, 200ms);
    EXPECT_LT(idleReport.median, busyReport.longest);
}

TEST_F(FixtureTest, TheBackgroundCanBeRead)
{
    EXPECT_EQ(desktop_.pixels().at(3, 3), Desktop::backgroundColour);
}

TEST(CompositedDesktopTest, HasACompositor)
{
    Desktop desktop({.screen = {800, 600}, .compositor = CompositorChoice::picom});
    TextClient editor(desktop, TextClientKind::gtk);
    desktop.keyboard().type("x");
    editor.waitForText("x");
    EXPECT_EQ(desktop.pixels().readQuietScreen().at(3, 3), Desktop::backgroundColour);
}

} // namespace

} // namespace tessel::desktop
