#include <fstream>

#include <gmock/gmock.h>

#include "IncludeScanner.h"

namespace tessel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const std::filesystem::path sources = TESSEL_SOURCES;
const std::filesystem::path core = sources / "Core";
const std::filesystem::path seam = sources / "Platform" / "Seam";

TEST(Includes, OfTheCoreAreTheStandardLibraryTheSeamAndTheCore)
{
    EXPECT_THAT(forbiddenIncludes(core, {core, seam}), IsEmpty());
}

TEST(Includes, OfTheSeamAreTheStandardLibraryAndTheSeam)
{
    EXPECT_THAT(forbiddenIncludes(seam, {seam}), IsEmpty());
}

/// The build chooses the files of a system; no file has to ask.
TEST(Sources, DoNotAskWhichSystemTheyAreCompiledFor)
{
    EXPECT_THAT(mentions(sources, {"__APPLE__", "__MACH__", "__linux", "__unix", "_WIN32", "TARGET_OS_",
                                   "Q_OS_", "QOperatingSystemVersion", "productType()"}),
                IsEmpty());
}

// The scanner sees what it is for.

TEST(IncludeScanner, ReadsEveryFormOfAnInclude)
{
    const auto lines = includeLines("#include <vector>\n"
                                    "  #  include \"History/History.h\" // why\n"
                                    "#include HEADER\n"
                                    "#import <AppKit/AppKit.h>\r\n"
                                    "int includes = 1; // #include in passing\n");
    std::vector<std::string> headers;
    std::vector<IncludeLine::Form> forms;
    for (const IncludeLine& line : lines) {
        headers.push_back(line.header);
        forms.push_back(line.form);
    }
    EXPECT_THAT(headers, ElementsAre("vector", "History/History.h", "HEADER", "AppKit/AppKit.h"));
    EXPECT_THAT(forms, ElementsAre(IncludeLine::Form::angled, IncludeLine::Form::quoted,
                                   IncludeLine::Form::unreadable, IncludeLine::Form::angled));
}

TEST(IncludeScanner, KnowsTheStandardLibraryFromTheSystem)
{
    for (const auto* header : {"vector", "cstdint", "span", "compare", "version"})
        EXPECT_TRUE(isStandardHeader(header)) << header;
    for (const auto* header :
         {"", "QString", "stdint.h", "unistd.h", "xcb/xcb.h", "sys/types.h", "X11/Xlib.h", "Vector"})
        EXPECT_FALSE(isStandardHeader(header)) << header;
}

/// A directory of the test's own, removed at its end.
class ScannedFloor : public testing::Test {
protected:
    std::filesystem::path floor;

    void SetUp() override
    {
        floor =
            std::filesystem::path(testing::TempDir()) /
            (std::string("scanned-floor-") + testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(floor / "Room");
    }
    void TearDown() override { std::filesystem::remove_all(floor); }

    void write(const char* file, const char* text) const { std::ofstream(floor / file) << text; }
};

TEST_F(ScannedFloor, MayIncludeItsOwnFilesAndTheStandardLibrary)
{
    write("Room/Own.h", "#include <vector>\n");
    write("Room/Own.cpp", "#include \"Room/Own.h\"\n");
    EXPECT_THAT(forbiddenIncludes(floor, {floor}), IsEmpty());
}

TEST_F(ScannedFloor, MayIncludeNothingElse)
{
    write("Room/Own.h", "#include <QString>\n#include <xcb/xcb.h>\n");
    write("Other.cpp", "#include \"Foreign.h\"\n#include \"Room/../Room/Own.h\"\n#include HEADER\n");
    EXPECT_THAT(forbiddenIncludes(floor, {floor}),
                UnorderedElementsAre("Room/Own.h: QString", "Room/Own.h: xcb/xcb.h", "Other.cpp: Foreign.h",
                                     "Other.cpp: Room/../Room/Own.h", "Other.cpp: HEADER"));
}

TEST_F(ScannedFloor, IsReadForWords)
{
    write("Room/Own.mm", "#if defined(__APPLE__)\n#endif\n");
    write("Other.cpp", "// An apple.\n");
    EXPECT_THAT(mentions(floor, {"__APPLE__", "Q_OS_"}), ElementsAre("Room/Own.mm: __APPLE__"));
}

} // namespace
} // namespace tessel::test
