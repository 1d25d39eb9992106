#include "Desktop/AutostartLoginItem.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <thread>

#include <sys/stat.h>
#include <unistd.h>

#include "FullDisk.h"

namespace tessel {
namespace {

const QByteArray plain = "[Desktop Entry]\nType=Application\nName=Tessel\nExec=tessel-clipboard\n";

constexpr int patience = 60'000; // Milliseconds.

/// Two directories of the system and the user's, on a desktop of two names.
class AutostartLoginItemTest : public testing::Test {
protected:
    AutostartLoginItemTest()
    {
        directory_.setAutoRemove(true);
        for (const char* name : {"user", "first", "second"})
            QDir(directory_.path()).mkpath(name);
    }

    AutostartLoginItem::Surroundings surroundings() const
    {
        return {path("user"), {path("first"), path("second")}, {"Ubuntu", "GNOME"}, program_};
    }
    QString path(const QString& name) const { return directory_.filePath(name); }
    QString entry(const QString& where) const
    {
        return path(where) + "/org.tesselclipboard.TesselClipboard.desktop";
    }
    void write(const QString& where, const QByteArray& content) const
    {
        QFile file(entry(where));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray read(const QString& where) const
    {
        QFile file(entry(where));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static bool appears(const QString& path)
    {
        QElapsedTimer elapsed;
        elapsed.start();
        while (!QFile::exists(path) && elapsed.elapsed() < patience)
            std::this_thread::yield();
        return QFile::exists(path);
    }
    bool isEnabled() const { return item().status() == LoginItemStatus::enabled; }
    AutostartLoginItem item() const { return AutostartLoginItem(surroundings()); }

    QTemporaryDir directory_;
    QString program_ = "/bin/sh";
};

TEST_F(AutostartLoginItemTest, IsOffWithoutAnyEntry)
{
    EXPECT_FALSE(isEnabled());
    EXPECT_TRUE(item().unregisterItem());
    EXPECT_TRUE(QDir(path("user")).isEmpty());
}

TEST_F(AutostartLoginItemTest, RegistersAndUnregisters)
{
    EXPECT_TRUE(item().registerItem());
    EXPECT_TRUE(isEnabled());
    EXPECT_EQ(read("user"),
              "[Desktop Entry]\nType=Application\nName=Tessel Clipboard\nExec=\"/bin/sh\"\nTryExec=/bin/sh\n"
              "Icon=org.tesselclipboard.TesselClipboard\n");
    EXPECT_TRUE(item().registerItem());
    EXPECT_TRUE(item().unregisterItem());
    EXPECT_FALSE(isEnabled());
    EXPECT_TRUE(QDir(path("user")).isEmpty());
}

TEST_F(AutostartLoginItemTest, MakesTheUsersDirectory)
{
    QDir(path("user")).removeRecursively();
    EXPECT_TRUE(item().registerItem());
    EXPECT_TRUE(isEnabled());
}

TEST_F(AutostartLoginItemTest, WritesAnEntryThatTheStandardsOwnToolAccepts)
{
    program_ = path("a \"$b\" `c` 100% \\d");
    ASSERT_TRUE(QFile::copy("/bin/sh", program_));
    ASSERT_TRUE(item().registerItem());
    QProcess tool;
    tool.start("desktop-file-validate", {entry("user")});
    ASSERT_TRUE(tool.waitForFinished(patience));
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAll().toStdString();
    EXPECT_EQ(tool.readAll(), "");
}

TEST_F(AutostartLoginItemTest, StartsTheProgramWhateverItsPath)
{
    program_ = path("a \"$b\" `c` \\d");
    QFile script(program_);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\ntouch \"" + path("started").toUtf8() + "\"\n");
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_TRUE(item().registerItem());
    QProcess launcher;
    launcher.start("gio", {"launch", entry("user")});
    ASSERT_TRUE(launcher.waitForFinished(patience));
    EXPECT_EQ(launcher.exitCode(), 0) << launcher.readAllStandardError().toStdString();
    EXPECT_TRUE(appears(path("started"))); // The launcher does not wait for the program.
}

TEST_F(AutostartLoginItemTest, AnEntryOfTheSystemCounts)
{
    write("second", plain);
    EXPECT_TRUE(isEnabled());
}

TEST_F(AutostartLoginItemTest, TheMoreImportantDirectoryWins)
{
    write("second", plain);
    write("first", plain + "Hidden=true\n");
    EXPECT_FALSE(isEnabled());
    write("user", plain);
    EXPECT_TRUE(isEnabled());
    write("user", "nonsense");
    EXPECT_FALSE(isEnabled());
}

TEST_F(AutostartLoginItemTest, HidesAnEntryOfTheSystemAndShowsItAgain)
{
    write("first", plain);
    EXPECT_TRUE(item().unregisterItem());
    EXPECT_FALSE(isEnabled());
    EXPECT_EQ(read("first"), plain);
    EXPECT_TRUE(read("user").contains("Hidden=true"));
    EXPECT_TRUE(item().registerItem());
    EXPECT_TRUE(isEnabled());
}

struct Case {
    const char* name;
    QByteArray content;
    bool isEnabled;
};

class AutostartEntryTest : public AutostartLoginItemTest, public testing::WithParamInterface<Case> {};

TEST_P(AutostartEntryTest, ReadsAsTheStandardSays)
{
    write("user", GetParam().content);
    EXPECT_EQ(isEnabled(), GetParam().isEnabled);
    write("second", plain);
    EXPECT_EQ(isEnabled(), GetParam().isEnabled) << "one of the system shines through";
}

INSTANTIATE_TEST_SUITE_P(
    Entries, AutostartEntryTest,
    testing::Values(
        Case{"Plain", plain, true}, Case{"Hidden", plain + "Hidden=true\n", false},
        Case{"NotHidden", plain + "Hidden=false\n", true},
        Case{"SwitchedOffByGnome", plain + "X-GNOME-Autostart-enabled=false\n", false},
        Case{"SwitchedOnByGnome", plain + "X-GNOME-Autostart-enabled=true\n", true},
        Case{"NonsenseIsNeitherTrueNorFalse", plain + "Hidden=perhaps\nX-GNOME-Autostart-enabled=\n", true},
        Case{"OnlyHere", plain + "OnlyShowIn=KDE;GNOME;\n", true},
        Case{"OnlyElsewhere", plain + "OnlyShowIn=KDE;XFCE;\n", false},
        Case{"OnlyNowhere", plain + "OnlyShowIn=\n", false},
        Case{"NotHere", plain + "NotShowIn=GNOME\n", false},
        Case{"NotElsewhere", plain + "NotShowIn=KDE;\n", true},
        Case{"TheFirstNameDecides", plain + "OnlyShowIn=Ubuntu;\nNotShowIn=GNOME;\n", true},
        Case{"CanBeTried", plain + "TryExec=/bin/sh\n", true},
        Case{"CanBeFound", plain + "TryExec=sh\n", true},
        Case{"IsGone", plain + "TryExec=/nowhere/tessel-clipboard\n", false},
        Case{"CannotBeFound", plain + "TryExec=tessel-no-such-program\n", false},
        Case{"IsADirectory", plain + "TryExec=/bin\n", false}, Case{"Empty", "", false},
        Case{"NoGroup", "Type=Application\nExec=x\n", false},
        Case{"AnotherGroupFirst", "[Other]\nA=b\n" + plain, false},
        Case{"NoType", "[Desktop Entry]\nName=x\nExec=x\n", false},
        Case{"ALink", "[Desktop Entry]\nType=Link\nName=x\nURL=x\nExec=x\n", false},
        Case{"NothingToExecute", "[Desktop Entry]\nType=Application\nName=x\n", false},
        Case{"Zeros", QByteArray(64, '\0'), false}, Case{"NotUTF8", plain + "Comment=\xff\xfe\n", true},
        Case{"Huge", plain + "#" + QByteArray(2'000'000, 'x') + "\n", false},
        Case{"Comments", "# One\n\n[Desktop Entry]\n# Two\nType=Application\nName=x\nExec=x\n", true}),
    [](const auto& each) { return std::string(each.param.name); });

TEST_F(AutostartLoginItemTest, ALinkToADeviceSwitchesOff)
{
    write("first", plain);
    ASSERT_EQ(mkfifo(path("device").toUtf8().constData(), 0600), 0); // Stands for the null device.
    ASSERT_TRUE(QFile::link(path("device"), entry("user")));
    EXPECT_FALSE(isEnabled());
    EXPECT_TRUE(item().registerItem());
    EXPECT_TRUE(isEnabled());
    struct stat device = {};
    ASSERT_EQ(stat(path("device").toUtf8().constData(), &device), 0);
    EXPECT_TRUE(S_ISFIFO(device.st_mode)) << "what the link led to is gone";
}

TEST_F(AutostartLoginItemTest, APipeHoldsNobodyUp)
{
    ASSERT_EQ(mkfifo(entry("user").toUtf8().constData(), 0600), 0);
    EXPECT_FALSE(isEnabled());
}

TEST_F(AutostartLoginItemTest, ADirectoryInTheEntrysPlaceIsARefusal)
{
    QDir().mkpath(entry("user") + "/inner");
    EXPECT_FALSE(item().registerItem());
    EXPECT_FALSE(isEnabled());
    write("first", plain);
    EXPECT_TRUE(isEnabled());
    EXPECT_FALSE(item().unregisterItem());
    EXPECT_TRUE(isEnabled());
}

TEST_F(AutostartLoginItemTest, AFileInTheDirectorysPlaceIsARefusal)
{
    QDir(path("user")).removeRecursively();
    QFile file(path("user"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(item().registerItem());
    EXPECT_FALSE(isEnabled());
}

TEST_F(AutostartLoginItemTest, AFullDiskIsARefusalAndLosesNothing)
{
    const QByteArray before = plain + "Hidden=true\n";
    write("user", before);
    {
        const FullDisk disk(1);
        EXPECT_FALSE(item().registerItem());
    }
    EXPECT_EQ(read("user"), before);
    EXPECT_EQ(QDir(path("user")).entryList(QDir::Files).size(), 1);
}

TEST_F(AutostartLoginItemTest, AReadOnlyDirectoryIsARefusal)
{
    ASSERT_EQ(chmod(directory_.path().toUtf8().constData(), 0755), 0);
    ASSERT_EQ(chmod(path("user").toUtf8().constData(), 0555), 0);
    const uid_t user = geteuid();
    constexpr uid_t nobody = 65534;
    // Nothing is read-only to root, who may be confined to being root.
    if (user == 0 && seteuid(nobody) != 0)
        GTEST_SKIP() << "nothing is read-only to this user";
    const bool hasRegistered = item().registerItem();
    ASSERT_EQ(seteuid(user), 0);
    chmod(path("user").toUtf8().constData(), 0755);
    EXPECT_FALSE(hasRegistered);
    EXPECT_FALSE(isEnabled());
}

} // namespace
} // namespace tessel
