#include "Desktop/JSONDefaultsStore.h"

#include <gtest/gtest.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QTemporaryDir>

#include <atomic>
#include <future>
#include <thread>

#include <sys/stat.h>

#include "FullDisk.h"

namespace tessel {
namespace {

using namespace std::chrono_literals;

class JSONDefaultsStoreTest : public testing::Test {
protected:
    QString path() const { return directory_.filePath("tessel-clipboard/settings.json"); }

    void write(const QByteArray& content) const
    {
        QDir().mkpath(directory_.filePath("tessel-clipboard"));
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QByteArray read(const QString& name) const
    {
        QFile file(directory_.filePath("tessel-clipboard/" + name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QJsonObject stored() const { return QJsonDocument::fromJson(read("settings.json")).object(); }

    QStringList files() const { return QDir(directory_.filePath("tessel-clipboard")).entryList(QDir::Files); }

    /// Waits until the file has that value.
    void waitForStored(const char* key, const QJsonValue& value) const
    {
        waitUntil([&] { return stored().value(key) == value; });
    }
    template <class Condition>
    static void waitUntil(const Condition& condition)
    {
        const QDeadlineTimer deadline(60s);
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired());
            std::this_thread::yield();
        }
    }

    QTemporaryDir directory_;
};

/// A disk that takes nothing until it is told to.
class HangingDisk {
public:
    JSONDefaultsStore::WriteFile writeFile()
    {
        return [this](const QString& path, const QByteArray& content) {
            ++attempts_;
            released_.wait();
            writeWholeFile(path, content);
        };
    }
    /// How many writes have begun.
    int attempts() const { return attempts_; }
    void release() { release_.set_value(); }

private:
    std::promise<void> release_;
    std::shared_future<void> released_ = release_.get_future().share();
    std::atomic<int> attempts_ = 0;
};

TEST_F(JSONDefaultsStoreTest, AMissingFileHasNoValuesAndIsNotMadeByReading)
{
    const JSONDefaultsStore store(path());
    EXPECT_EQ(store.string("a"), std::nullopt);
    EXPECT_EQ(store.number("a"), std::nullopt);
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(JSONDefaultsStoreTest, ValuesComeBackInTheNextProcess)
{
    {
        JSONDefaultsStore store(path());
        store.setString("policy", "oneDay");
        store.setDouble("opacity", 0.1 + 0.2);
    }
    const JSONDefaultsStore store(path());
    EXPECT_EQ(store.string("policy"), "oneDay");
    EXPECT_EQ(store.number("opacity"), 0.1 + 0.2);
}

TEST_F(JSONDefaultsStoreTest, TellsAMissingKeyAndAnotherTypeApartFromAValue)
{
    write(R"({"text": "900", "number": 900, "truth": true, "nothing": null, "list": [1]})");
    const JSONDefaultsStore store(path());
    EXPECT_EQ(store.number("text"), std::nullopt);
    EXPECT_EQ(store.string("number"), std::nullopt);
    for (const char* key : {"truth", "nothing", "list", "missing"}) {
        EXPECT_EQ(store.number(key), std::nullopt) << key;
        EXPECT_EQ(store.string(key), std::nullopt) << key;
    }
    EXPECT_EQ(store.string("text"), "900");
    EXPECT_EQ(store.number("number"), 900);
}

TEST_F(JSONDefaultsStoreTest, ADamagedFileIsKeptAsideAndDefaultsApply)
{
    for (const char* damage : {"{\"policy\": ", "", "[1, 2]", "\xff\xfe{}"}) {
        write(damage);
        JSONDefaultsStore store(path());
        EXPECT_EQ(store.string("policy"), std::nullopt);
        EXPECT_FALSE(QFile::exists(path()));
        store.setString("policy", "never");
    }
    EXPECT_EQ(stored().value("policy").toString(), "never");
    EXPECT_EQ(read("settings.json.damaged"), "{\"policy\": ");
    EXPECT_EQ(read("settings.json.damaged-3"), "[1, 2]");
    EXPECT_EQ(files().size(), 5);
}

TEST_F(JSONDefaultsStoreTest, AWriteKeepsWhatTheUserHasEditedMeanwhile)
{
    {
        JSONDefaultsStore store(path());
        store.setString("policy", "never");
        waitForStored("policy", "never");
        write(R"({"policy": "oneDay", "note": "mine"})");
        store.setDouble("opacity", 0.5);
    }
    EXPECT_EQ(stored().value("policy").toString(), "oneDay");
    EXPECT_EQ(stored().value("note").toString(), "mine");
    EXPECT_EQ(stored().value("opacity").toDouble(), 0.5);
}

TEST_F(JSONDefaultsStoreTest, AStoreThatCannotWriteKeepsItsValues)
{
    // A file where the directory should be.
    QFile obstacle(directory_.filePath("tessel-clipboard"));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    JSONDefaultsStore store(path());
    store.setString("policy", "oneDay");
    EXPECT_EQ(store.string("policy"), "oneDay");
}

TEST_F(JSONDefaultsStoreTest, ADirectoryInTheFilesPlaceIsLeftAlone)
{
    QDir().mkpath(path());
    {
        JSONDefaultsStore store(path());
        store.setString("policy", "oneDay");
        EXPECT_EQ(store.string("policy"), "oneDay");
    }
    EXPECT_TRUE(QDir(path()).exists());
}

TEST_F(JSONDefaultsStoreTest, WhatIsNoFileIsLeftAlone)
{
    QDir().mkpath(directory_.filePath("tessel-clipboard"));
    ASSERT_EQ(mkfifo(path().toUtf8().constData(), 0600), 0);
    {
        JSONDefaultsStore store(path());
        store.setDouble("number", 1);
        EXPECT_EQ(store.number("number"), 1.0);
    }
    struct stat now = {};
    ASSERT_EQ(stat(path().toUtf8().constData(), &now), 0);
    EXPECT_TRUE(S_ISFIFO(now.st_mode));
}

TEST_F(JSONDefaultsStoreTest, AFullDiskLosesNothing)
{
    write(R"({"number": 1})");
    const QByteArray before = read("settings.json");
    {
        const FullDisk disk(5);
        JSONDefaultsStore store(path());
        store.setDouble("number", 2);
        EXPECT_EQ(store.number("number"), 2.0);
    }
    EXPECT_EQ(read("settings.json"), before);
    EXPECT_EQ(files(), QStringList{"settings.json"});
}

TEST_F(JSONDefaultsStoreTest, ADiskThatHangsHoldsUpNothingButTheEnd)
{
    HangingDisk disk;
    {
        JSONDefaultsStore store(path(), disk.writeFile());
        store.setString("policy", "oneDay");
        waitUntil([&] { return disk.attempts() == 1; });
        for (int step = 0; step <= 100; ++step)
            store.setDouble("opacity", step / 100.0);
        store.setString("policy", "never");
        EXPECT_EQ(store.number("opacity"), 1.0);
        EXPECT_EQ(store.string("policy"), "never");
        EXPECT_FALSE(QFile::exists(path()));
        disk.release();
    }
    EXPECT_EQ(stored(), (QJsonObject{{"opacity", 1.0}, {"policy", "never"}}));
    EXPECT_EQ(disk.attempts(), 2);
}

TEST_F(JSONDefaultsStoreTest, NoThreadStaysBehindAWrite)
{
    const auto threads = [] { return QDir("/proc/self/task").entryList(QDir::Dirs).size(); };
    const auto before = threads();
    JSONDefaultsStore store(path());
    store.setDouble("number", 1);
    waitForStored("number", 1);
    waitUntil([&] { return threads() <= before; });
    store.setDouble("number", 2);
    waitForStored("number", 2);
}

TEST(JSONDefaultsStorePathTest, StateLiesInItsOwnDirectoryAndRelativeOnesDoNotCount)
{
    const QByteArray before = qgetenv("XDG_STATE_HOME");
    qputenv("XDG_STATE_HOME", "/somewhere/state");
    EXPECT_EQ(JSONDefaultsStore::statePath(), "/somewhere/state/tessel-clipboard/state.json");
    const QString standard = QDir::homePath() + "/.local/state/tessel-clipboard/state.json";
    qputenv("XDG_STATE_HOME", "state");
    EXPECT_EQ(JSONDefaultsStore::statePath(), standard);
    qunsetenv("XDG_STATE_HOME");
    EXPECT_EQ(JSONDefaultsStore::statePath(), standard);
    if (!before.isNull())
        qputenv("XDG_STATE_HOME", before);
}

} // namespace
} // namespace tessel
