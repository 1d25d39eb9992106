// The picture program GIMP.

#include "ApplicationTest.h"

namespace tessel::desktop {

namespace {

class PictureProgramTest : public ApplicationTest {
protected:
    PictureProgramTest() { writePng(picture_, file_); }

    const Picture picture_ = makeTestPicture(317, 211, 7);
    const std::filesystem::path file_ = desktop_.directory().path() / "picture.png";
};

TEST_F(PictureProgramTest, APictureFromGimpOutlivesIt)
{
    Application program(desktop_, gimp(desktop_, file_));
    const auto offered = copyAndQuit(program, {"image/png"});
    EXPECT_EQ(decodePng(offered.at("image/png").value_or("")), picture_);
    expectPicturePastes(file_);
}

TEST_F(PictureProgramTest, AnEntryPastesIntoGimpWithTheSamePixels)
{
    {
        ImageClient source(desktop_, "source");
        source.copy(file_);
        expectEntryCount(2);
    }
    Application program(desktop_, gimp(desktop_));
    choose(0);
    program.waitForTitle("317x211");
    program.copy();
    EXPECT_EQ(decodePng(read({"image/png"}).at("image/png").value_or("")), picture_);
}

} // namespace

} // namespace tessel::desktop
