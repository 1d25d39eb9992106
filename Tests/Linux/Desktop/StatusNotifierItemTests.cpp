#include "Desktop/StatusNotifier/StatusNotifierItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QXmlStreamReader>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVariant>
#include <QtGui/QGuiApplication>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <optional>
#include <string>

#include "Desktop/StatusNotifier/MenuTypes.h"
#include "SessionBus.h"
#include "StatusItemReader.h"
#include "StatusNotifierWatcherStandIn.h"
#include "TemporaryDirectory.h"

namespace tessel {
namespace {

using Conduct = StatusNotifierWatcherStandIn::Conduct;
using Kind = StatusMenuRow::Kind;
using testing::ElementsAre;

class FakeAppearance : public Appearance {
public:
    const AppearanceSettings& settings() const override { return settings_; }
    Token observe(std::function<void()> didChange) override
    {
        didChange_ = std::move(didChange);
        return Token([this] { didChange_ = {}; });
    }
    void become(ColorScheme scheme)
    {
        settings_.colorScheme = scheme;
        didChange_();
    }

private:
    AppearanceSettings settings_;
    std::function<void()> didChange_;
};

/// An item on a bus with a watcher, both of this process, and a host that reads the item.
class StatusNotifierItemTest : public testing::Test {
protected:
    ~StatusNotifierItemTest() override
    {
        item_.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("program"));
    }

    void makeItem()
    {
        item_.emplace(StatusNotifierItem::Surroundings{
            .bus = QDBusConnection::connectToBus(address(), QStringLiteral("program")),
            .appearance = appearance_,
            .pointOfPixel =
                [](int x, int y) {
                    return Point{x / 2.0, 1000 - y / 2.0};
                },
            .userDidAct = [this] { log_.emplace_back("acts"); },
        });
        observation_ = item_->observe([this] { ++changes_; });
        item_->setMenu(rows("Cmd + Shift + V"));
    }

    void show()
    {
        item_->show({
            .title = "Clipboard",
            .symbolName = "document.on.clipboard.fill",
            .drawIcon =
                [this](int pixels, ColorScheme panel) {
                    ++drawings_;
                    const std::uint32_t colour = panel == ColorScheme::dark ? 0x80ffffff : 0x80010203;
                    const auto count = static_cast<std::size_t>(pixels) * static_cast<std::size_t>(pixels);
                    return StatusIcon{pixels, std::vector(count, colour)};
                },
            .openMenu =
                [this](Point point) {
                    log_.push_back("menu at " + std::to_string(static_cast<int>(point.x)) + "," +
                                   std::to_string(static_cast<int>(point.y)));
                },
        });
    }

    /// Shows the item in a menu bar, with a reader.
    void showAndRead()
    {
        watcher_->start();
        makeItem();
        show();
        ASSERT_TRUE(becomesShown());
        reader_.emplace(watcher_->bus(), watcher_->items().front());
        reader_->openMenu();
    }

    std::vector<StatusMenuRow> rows(const std::string& preset)
    {
        return {
            {Kind::header, "Tessel Clipboard", preset, {}},
            {Kind::separator, {}, {}, {}},
            {Kind::action, "Open_History", {}, [this] { log_.emplace_back("open"); }},
            {Kind::action, "Quit", {}, [this] { log_.emplace_back("quit"); }},
        };
    }

    template <class Condition>
    bool runUntil(Condition condition)
    {
        QElapsedTimer elapsed;
        elapsed.start();
        while (!condition() && elapsed.elapsed() < 60'000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        return condition();
    }
    bool becomesShown()
    {
        return runUntil([this] { return item_->isShown(); });
    }
    bool becomesHidden()
    {
        return runUntil([this] { return !item_->isShown(); });
    }

    std::vector<std::string> labels() const
    {
        std::vector<std::string> labels;
        for (const ReadMenuEntry& entry : reader_->entries())
            labels.push_back(entry.isSeparator() ? "---" : entry.label().toStdString());
        return labels;
    }
    std::vector<int> numbers() const
    {
        std::vector<int> numbers;
        for (const ReadMenuEntry& entry : reader_->entries())
            numbers.push_back(entry.id);
        return numbers;
    }
    /// A number that no entry has where there is no such label.
    int numberOf(const char* label) const
    {
        const ReadMenuEntry* entry = reader_->entry(QString::fromUtf8(label));
        return entry == nullptr ? -1 : entry->id;
    }

    /// What a method of the menu answers; the signature of its arguments, or the name of its error.
    std::string answer(const QDBusMessage& message) const
    {
        return (message.type() == QDBusMessage::ErrorMessage ? message.errorName() : message.signature())
            .toStdString();
    }
    QString address() const { return QString::fromStdString(bus_->address()); }

    desktop::TemporaryDirectory directory_;
    std::optional<desktop::SessionBus> bus_{std::in_place, directory_, desktop::Environment{}};
    int argumentCount_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    QGuiApplication application_{argumentCount_, arguments_};
    FakeAppearance appearance_;
    std::optional<StatusNotifierWatcherStandIn> watcher_{std::in_place, address()};
    std::optional<StatusNotifierItem> item_;
    std::optional<StatusItemReader> reader_;
    Token observation_;
    int changes_ = 0;
    int drawings_ = 0;
    std::vector<std::string> log_;
};

const std::string invalidArguments = "org.freedesktop.DBus.Error.InvalidArgs";

TEST_F(StatusNotifierItemTest, IsShownWhereThereIsAMenuBar)
{
    watcher_->start();
    makeItem();
    EXPECT_FALSE(item_->isShown());
    show();
    EXPECT_FALSE(item_->isShown()) << "before anybody has answered";
    EXPECT_TRUE(becomesShown());
    EXPECT_EQ(changes_, 1);
    ASSERT_EQ(watcher_->items().size(), 1U);
    EXPECT_EQ(watcher_->items().front().path, QStringLiteral("/StatusNotifierItem"));
    EXPECT_EQ(drawings_, 0) << "drawn before anybody asked";
}

TEST_F(StatusNotifierItemTest, IsShownInAMenuBarThatComesLater)
{
    makeItem();
    show();
    watcher_->start();
    EXPECT_TRUE(becomesShown());
    EXPECT_EQ(changes_, 1);
}

TEST_F(StatusNotifierItemTest, WaitsForAHost)
{
    watcher_->setHost(false);
    watcher_->start();
    makeItem();
    show();
    ASSERT_TRUE(runUntil([this] { return watcher_->questions() == 1 && watcher_->items().size() == 1; }));
    EXPECT_FALSE(item_->isShown());
    watcher_->setHost(true);
    EXPECT_TRUE(becomesShown());
    watcher_->setHost(false);
    EXPECT_TRUE(becomesHidden());
    EXPECT_EQ(changes_, 2);
    EXPECT_EQ(watcher_->registrations(), 1);
}

TEST_F(StatusNotifierItemTest, ComesBackWithTheNextMenuBar)
{
    watcher_->start();
    makeItem();
    show();
    ASSERT_TRUE(becomesShown());
    watcher_->stop();
    EXPECT_TRUE(becomesHidden());
    watcher_->start();
    EXPECT_TRUE(becomesShown());
    EXPECT_EQ(watcher_->items().size(), 1U);
    EXPECT_EQ(changes_, 3);
}

TEST_F(StatusNotifierItemTest, StaysHiddenWhereItIsRefused)
{
    watcher_->setConduct(Conduct::refuses);
    watcher_->start();
    makeItem();
    show();
    // The refusal was sent before the answer to the next question.
    ASSERT_TRUE(runUntil([this] { return watcher_->registrations() == 1; }));
    watcher_->setHost(true);
    ASSERT_TRUE(runUntil([this] { return watcher_->registrations() == 2; })) << "is to try once more";
    EXPECT_FALSE(item_->isShown());
    watcher_->setConduct(Conduct::good);
    watcher_->setHost(true);
    EXPECT_TRUE(becomesShown());
    EXPECT_EQ(changes_, 1);
}

TEST_F(StatusNotifierItemTest, WaitsForASilentWatcherAsLongAsItTakes)
{
    watcher_->setConduct(Conduct::isSilent);
    watcher_->start();
    makeItem();
    show();
    ASSERT_TRUE(runUntil([this] { return watcher_->registrations() == 1 && watcher_->questions() == 1; }));
    EXPECT_FALSE(item_->isShown());
    watcher_->answerAtLast();
    EXPECT_TRUE(becomesShown());
}

TEST_F(StatusNotifierItemTest, ForgetsASilentWatcherThatGoes)
{
    watcher_->setConduct(Conduct::isSilent);
    watcher_->start();
    makeItem();
    show();
    ASSERT_TRUE(runUntil([this] { return watcher_->registrations() == 1; }));
    watcher_.reset();
    watcher_.emplace(address());
    watcher_->start();
    EXPECT_TRUE(becomesShown());
}

TEST_F(StatusNotifierItemTest, IsNeverShownWithoutABus)
{
    StatusNotifierItem alone({QDBusConnection(QStringLiteral("nobody")), appearance_, {}, {}});
    alone.setMenu(rows("Cmd + Shift + V"));
    alone.show({"Clipboard", {}, {}, {}});
    alone.setMenu({});
    QCoreApplication::processEvents();
    EXPECT_FALSE(alone.isShown());
}

TEST_F(StatusNotifierItemTest, IsHiddenOnceTheBusIsGone)
{
    showAndRead();
    ASSERT_TRUE(item_->isShown());
    bus_.reset();
    EXPECT_TRUE(becomesHidden());
    item_->setMenu(rows("Ctrl + Shift + V"));
    appearance_.become(ColorScheme::dark);
    EXPECT_EQ(changes_, 2);
}

TEST_F(StatusNotifierItemTest, WaitsForNoBus)
{
    makeItem();
    ASSERT_EQ(::kill(bus_->pid(), SIGSTOP), 0);
    QElapsedTimer elapsed;
    elapsed.start();
    show();
    item_->setMenu(rows("Ctrl + Shift + V"));
    EXPECT_LT(elapsed.elapsed(), 20'000) << "a call that is waited for takes 25 seconds to fail";
    EXPECT_FALSE(item_->isShown());
    ASSERT_EQ(::kill(bus_->pid(), SIGCONT), 0);
    watcher_->start();
    EXPECT_TRUE(becomesShown());
}

TEST_F(StatusNotifierItemTest, HasThePropertiesOfTheInterface)
{
    showAndRead();
    const QVariantMap properties = reader_->properties();
    EXPECT_EQ(properties.value(QStringLiteral("Category")), QStringLiteral("ApplicationStatus"));
    EXPECT_EQ(properties.value(QStringLiteral("Id")), QStringLiteral("tessel-clipboard"));
    EXPECT_EQ(properties.value(QStringLiteral("Title")), QStringLiteral("Clipboard"));
    EXPECT_EQ(properties.value(QStringLiteral("Status")), QStringLiteral("Active"));
    EXPECT_EQ(properties.value(QStringLiteral("WindowId")), QVariant(0));
    EXPECT_EQ(properties.value(QStringLiteral("ItemIsMenu")), QVariant(true));
    EXPECT_EQ(properties.value(QStringLiteral("Menu")).value<QDBusObjectPath>().path(),
              QStringLiteral("/StatusNotifierItem"));
    const auto toolTip = properties.value(QStringLiteral("ToolTip")).value<QDBusArgument>();
    ASSERT_EQ(toolTip.currentSignature(), QStringLiteral("(sa(iiay)ss)"));
}

TEST_F(StatusNotifierItemTest, ShowsItsTitleAsToolTip)
{
    showAndRead();
    const auto toolTip = reader_->properties().value(QStringLiteral("ToolTip")).value<QDBusArgument>();
    QString iconName;
    QString title;
    toolTip.beginStructure();
    toolTip >> iconName;
    toolTip.beginArray();
    EXPECT_TRUE(toolTip.atEnd());
    toolTip.endArray();
    toolTip >> title;
    toolTip.endStructure();
    EXPECT_EQ(title, QStringLiteral("Clipboard"));
}

TEST_F(StatusNotifierItemTest, DrawsItsIconForThePanelsColour)
{
    showAndRead();
    std::vector<int> sizes;
    for (const ReadPixmap& pixmap : reader_->pixmaps()) {
        sizes.push_back(pixmap.width);
        EXPECT_EQ(pixmap.height, pixmap.width);
        ASSERT_EQ(pixmap.pixels.size(), static_cast<std::size_t>(pixmap.width * pixmap.height));
        EXPECT_EQ(pixmap.pixels.front(), 0x80010203U);
        EXPECT_EQ(pixmap.pixels.back(), 0x80010203U);
    }
    EXPECT_THAT(sizes, ElementsAre(16, 22, 24, 32, 44, 48, 64));

    appearance_.become(ColorScheme::dark);
    ASSERT_TRUE(runUntil([this] { return reader_->newIcons() == 1; }));
    EXPECT_EQ(reader_->pixmaps().front().pixels.front(), 0x80ffffffU);
}

TEST_F(StatusNotifierItemTest, NamesItsIconWhereMenuBarsPaintItInTheirOwnColour)
{
    showAndRead();
    qputenv("XDG_DATA_HOME", directory_.path().c_str());
    // Where this system may have the program installed.
    qputenv("XDG_DATA_DIRS", (directory_.path() / "system").c_str());
    const auto name = [this](const char* desktop) {
        qputenv("XDG_CURRENT_DESKTOP", desktop);
        return reader_->properties().value(QStringLiteral("IconName")).toString().toStdString();
    };
    EXPECT_EQ(name("XFCE"), "") << "it is not installed";
    const auto icons = directory_.path() / "icons/hicolor/symbolic/apps";
    std::filesystem::create_directories(icons);
    const std::string installed = "org.tesselclipboard.TesselClipboard-symbolic";
    std::ofstream(icons / (installed + ".svg")) << "<svg/>";
    EXPECT_EQ(name("XFCE"), installed);
    EXPECT_EQ(name("ubuntu:GNOME"), installed);
    EXPECT_EQ(name("LXQt"), "");
    EXPECT_EQ(name(""), "");
    EXPECT_FALSE(reader_->pixmaps().empty()) << "for hosts that do not find it";
}

TEST_F(StatusNotifierItemTest, OpensItsMenuWhereAHostLeavesThatToUs)
{
    showAndRead();
    EXPECT_EQ(answer(reader_->callItem(QStringLiteral("Activate"), {300, 20})), "");
    EXPECT_EQ(answer(reader_->callItem(QStringLiteral("ContextMenu"), {-2, 40})), "");
    EXPECT_EQ(answer(reader_->callItem(QStringLiteral("SecondaryActivate"), {1, 2})), "");
    EXPECT_EQ(answer(reader_->callItem(QStringLiteral("Scroll"), {120, QStringLiteral("vertical")})), "");
    ASSERT_TRUE(runUntil([this] { return log_.size() == 6; }));
    EXPECT_THAT(log_,
                ElementsAre("acts", "menu at 150,990", "acts", "menu at -1,980", "acts", "menu at 0,999"));
}

TEST_F(StatusNotifierItemTest, HasItsRowsAsEntries)
{
    showAndRead();
    EXPECT_THAT(labels(), ElementsAre("Tessel Clipboard", "Cmd + Shift + V", "---", "Open__History", "Quit"));
    std::vector<bool> enabled;
    for (const ReadMenuEntry& entry : reader_->entries())
        enabled.push_back(entry.isEnabled());
    EXPECT_THAT(enabled, ElementsAre(false, false, true, true, true));
    const QVariantMap properties = reader_->menuProperties();
    EXPECT_EQ(properties.value(QStringLiteral("Version")), QVariant(3U));
    EXPECT_EQ(properties.value(QStringLiteral("TextDirection")), QStringLiteral("ltr"));
    EXPECT_EQ(properties.value(QStringLiteral("Status")), QStringLiteral("normal"));
    EXPECT_EQ(properties.value(QStringLiteral("IconThemePath")).typeId(), QMetaType::QStringList);
}

TEST_F(StatusNotifierItemTest, DoesWhatWasClicked)
{
    showAndRead();
    const QDBusMessage reply = reader_->click(numberOf("Quit"));
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(runUntil([this] { return log_.size() == 2; }));
    EXPECT_THAT(log_, ElementsAre("acts", "quit"));
}

TEST_F(StatusNotifierItemTest, AnswersAClickBeforeItDoesWhatWasChosen)
{
    showAndRead();
    std::optional<QDBusPendingCall> click;
    std::optional<bool> wasAnswered;
    auto next = rows("Cmd + Shift + V");
    next.back().chosen = [&] {
        click->waitForFinished();
        wasAnswered = !click->isError();
    };
    item_->setMenu(std::move(next));
    click = reader_->beginClick(numberOf("Quit"));
    ASSERT_TRUE(runUntil([&] { return wasAnswered.has_value(); }));
    EXPECT_TRUE(*wasAnswered);
}

TEST_F(StatusNotifierItemTest, DoesNothingAtOtherEvents)
{
    showAndRead();
    for (const char* event : {"hovered", "opened", "closed", "", "CLICKED"})
        EXPECT_EQ(answer(reader_->sendEvent(numberOf("Quit"), QString::fromUtf8(event))), "");
    for (const int id : {0, numbers()[0], numbers()[1], numbers()[2]})
        EXPECT_EQ(answer(reader_->click(id)), "");
    reader_->click(numberOf("Open__History"));
    ASSERT_TRUE(runUntil([this] { return !log_.empty(); }));
    EXPECT_THAT(log_, ElementsAre("acts", "open"));
}

TEST_F(StatusNotifierItemTest, MayGoWithWhatWasClicked)
{
    watcher_->start();
    makeItem();
    item_->setMenu({{Kind::action, "Quit", {}, [this] { item_.reset(); }}});
    show();
    ASSERT_TRUE(becomesShown());
    reader_.emplace(watcher_->bus(), watcher_->items().front());
    reader_->openMenu();
    reader_->click(numberOf("Quit"));
    EXPECT_TRUE(runUntil([this] { return !item_.has_value(); }));
}

TEST_F(StatusNotifierItemTest, AnnouncesATextThatChangesWhileTheMenuIsOpen)
{
    showAndRead();
    const auto before = numbers();
    item_->setMenu(rows("Cmd + Option + V"));
    ASSERT_TRUE(runUntil([this] { return reader_->entry(QStringLiteral("Cmd + Option + V")) != nullptr; }));
    EXPECT_EQ(numbers(), before);
    EXPECT_EQ(reader_->propertyUpdates(), 1);
    EXPECT_EQ(reader_->layoutUpdates(), 0);
    item_->setMenu(rows("Cmd + Option + V"));
    item_->setMenu(rows("Ctrl + Shift + V"));
    ASSERT_TRUE(runUntil([this] { return reader_->entry(QStringLiteral("Ctrl + Shift + V")) != nullptr; }));
    EXPECT_EQ(reader_->propertyUpdates(), 2) << "what did not change was announced";
}

TEST_F(StatusNotifierItemTest, GivesNewNumbersToAMenuOfAnotherShape)
{
    showAndRead();
    const int oldNumber = numberOf("Open__History");
    const auto oldRevision = reader_->revision();
    auto next = rows("Cmd + Shift + V");
    next.erase(next.begin() + 1);
    item_->setMenu(std::move(next));
    ASSERT_TRUE(runUntil([this] { return reader_->layoutUpdates() == 1 && reader_->entries().size() == 4; }));
    EXPECT_GT(reader_->revision(), oldRevision);
    EXPECT_EQ(answer(reader_->click(oldNumber)), invalidArguments);
    reader_->click(numberOf("Open__History"));
    ASSERT_TRUE(runUntil([this] { return !log_.empty(); }));
    EXPECT_THAT(log_, ElementsAre("acts", "open"));
}

TEST_F(StatusNotifierItemTest, ReadsAsDeepAsItIsAsked)
{
    showAndRead();
    const auto children = [this](int parent, int depth) {
        const QDBusMessage reply =
            reader_->callMenu(QStringLiteral("GetLayout"), {parent, depth, QStringList()});
        return StatusItemReader::readLayout(reply.arguments().constLast().value<QDBusArgument>())
            .children.size();
    };
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(children(0, 0), 0U);
    for (const int depth : {-1, 1, 2, least, most})
        EXPECT_EQ(children(0, depth), 5U);
    EXPECT_EQ(children(numberOf("Quit"), -1), 0U);
}

TEST_F(StatusNotifierItemTest, ReadsTheNamedProperties)
{
    showAndRead();
    const QDBusMessage reply =
        reader_->callMenu(QStringLiteral("GetLayout"), {0, -1, QStringList{QStringLiteral("label")}});
    const auto layout = StatusItemReader::readLayout(reply.arguments().constLast().value<QDBusArgument>());
    EXPECT_EQ(layout.properties.size(), 0);
    EXPECT_EQ(layout.children.back().properties.keys(), QStringList{QStringLiteral("label")});

    const int quit = numberOf("Quit");
    const auto property = [&](const char* name) {
        return reader_->callMenu(QStringLiteral("GetProperty"), {quit, QString::fromUtf8(name)});
    };
    EXPECT_EQ(property("label").arguments().value(0).value<QDBusVariant>().variant(), QStringLiteral("Quit"));
    EXPECT_EQ(answer(property("label")), "v");
    EXPECT_EQ(answer(property("toggle-state")), invalidArguments);
    EXPECT_EQ(answer(property("")), invalidArguments);
}

TEST_F(StatusNotifierItemTest, ReadsThePropertiesOfAGroup)
{
    showAndRead();
    const auto count = [this](const QList<int>& ids) {
        const QDBusMessage reply = reader_->callMenu(QStringLiteral("GetGroupProperties"),
                                                     {QVariant::fromValue(ids), QStringList()});
        EXPECT_EQ(answer(reply), "a(ia{sv})");
        const auto argument = reply.arguments().constFirst().value<QDBusArgument>();
        int entries = 0;
        argument.beginArray();
        for (; !argument.atEnd(); ++entries) {
            int id = 0;
            QVariantMap properties;
            argument.beginStructure();
            argument >> id >> properties;
            argument.endStructure();
        }
        argument.endArray();
        return entries;
    };
    const int quit = numberOf("Quit");
    EXPECT_EQ(count({}), 6) << "no numbers mean all, the root among them";
    EXPECT_EQ(count({quit, 0}), 2);
    EXPECT_EQ(count({quit, 99'999, -1}), 1);
    EXPECT_EQ(count(QList<int>(100'000, quit)), 1);
}

TEST_F(StatusNotifierItemTest, TakesSeveralEventsAtOnce)
{
    showAndRead();
    const auto send = [this](const MenuEvents& events) {
        return reader_->callMenu(QStringLiteral("EventGroup"), {QVariant::fromValue(events)});
    };
    const QString clicked = QStringLiteral("clicked");
    const QDBusMessage reply =
        send({{numberOf("Open__History"), clicked}, {99'999, clicked}, {numberOf("Quit"), clicked}});
    EXPECT_EQ(answer(reply), "ai");
    EXPECT_EQ(qdbus_cast<QList<int>>(reply.arguments().constFirst()), QList<int>{99'999});
    ASSERT_TRUE(runUntil([this] { return log_.size() == 4; }));
    EXPECT_THAT(log_, ElementsAre("acts", "open", "acts", "quit"));
    EXPECT_EQ(answer(send({})), "ai");
    EXPECT_EQ(answer(send({{99'998, clicked}, {99'999, clicked}})), invalidArguments);
}

TEST_F(StatusNotifierItemTest, HasNothingToReadAgainWhenAHostAsks)
{
    showAndRead();
    const QDBusMessage root = reader_->callMenu(QStringLiteral("AboutToShow"), {0});
    EXPECT_EQ(answer(root), "b");
    EXPECT_FALSE(root.arguments().constFirst().toBool());
    const auto ask = [this](const QList<int>& ids) {
        return reader_->callMenu(QStringLiteral("AboutToShowGroup"), {QVariant::fromValue(ids)});
    };
    const QDBusMessage group = ask({0, 99'999, numberOf("Quit")});
    EXPECT_EQ(answer(group), "aiai");
    EXPECT_EQ(qdbus_cast<QList<int>>(group.arguments().constFirst()), QList<int>());
    EXPECT_EQ(qdbus_cast<QList<int>>(group.arguments().constLast()), QList<int>{99'999});
    EXPECT_EQ(answer(ask({99'999})), invalidArguments);
    EXPECT_EQ(answer(ask({})), "aiai");
}

TEST_F(StatusNotifierItemTest, RefusesEntriesThatAreNotThere)
{
    showAndRead();
    const QVariant names = QStringList();
    const int last = numbers().back();
    for (const int id : {-1, last + 1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(answer(reader_->callMenu(QStringLiteral("GetLayout"), {id, -1, names})), invalidArguments);
        EXPECT_EQ(answer(reader_->callMenu(QStringLiteral("GetProperty"), {id, QStringLiteral("label")})),
                  invalidArguments);
        EXPECT_EQ(answer(reader_->callMenu(QStringLiteral("AboutToShow"), {id})), invalidArguments);
        EXPECT_EQ(answer(reader_->click(id)), invalidArguments);
    }
    EXPECT_THAT(log_, ElementsAre());
}

TEST_F(StatusNotifierItemTest, AnswersCallsThatTheInterfacesDoNotHave)
{
    showAndRead();
    const QVariantList oddArguments[] = {
        {},
        {QStringLiteral("text")},
        {QStringLiteral("text"), 1, 2.5},
        {QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(1))))},
        {QByteArray(1'000'000, 'x')},
        {QVariantMap{{QStringLiteral("key"), 1}}, QStringList{QString()}},
        {true, QString(100'000, QLatin1Char('y'))},
    };
    for (const QVariantList& arguments : oddArguments) {
        for (const char* method : {"Activate", "ContextMenu", "Scroll", "NoSuchMethod", "NewIcon"})
            EXPECT_EQ(answer(reader_->callItem(QString::fromUtf8(method), arguments)),
                      "org.freedesktop.DBus.Error.UnknownMethod");
        for (const char* method : {"GetLayout", "GetGroupProperties", "GetProperty", "Event", "EventGroup",
                                   "AboutToShow", "AboutToShowGroup", "setRows", "LayoutUpdated"})
            EXPECT_EQ(answer(reader_->callMenu(QString::fromUtf8(method), arguments)),
                      "org.freedesktop.DBus.Error.UnknownMethod");
    }
    EXPECT_THAT(labels(), ElementsAre("Tessel Clipboard", "Cmd + Shift + V", "---", "Open__History", "Quit"));
    EXPECT_THAT(log_, ElementsAre());
}

/// The members of an interface as an object describes it: each with its name and the types that it takes and
/// gives.
std::vector<std::string> describedMembers(const QString& description, const QString& interfaceName)
{
    std::vector<std::string> members;
    QXmlStreamReader xml(description);
    bool isInside = false;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto attribute = [&xml](const char* name) {
            return xml.attributes().value(QLatin1StringView(name)).toString().toStdString();
        };
        if (xml.name() == QStringLiteral("interface"))
            isInside = attribute("name") == interfaceName.toStdString();
        else if (isInside && xml.name() == QStringLiteral("arg"))
            members.back() += (attribute("direction") == "in" ? " " : " >") + attribute("type");
        else if (isInside && xml.name() == QStringLiteral("property"))
            members.push_back(attribute("name") + " " + attribute("access") + " " + attribute("type"));
        else if (isInside && xml.name() != QStringLiteral("annotation"))
            members.push_back(attribute("name"));
    }
    return members;
}

TEST_F(StatusNotifierItemTest, IsTypedAsTheInterfacesAre)
{
    showAndRead();
    const QString description =
        reader_
            ->call(QStringLiteral("/StatusNotifierItem"),
                   QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect"), {})
            .arguments()
            .constFirst()
            .toString();
    EXPECT_THAT(describedMembers(description, QStringLiteral("org.kde.StatusNotifierItem")),
                testing::UnorderedElementsAre(
                    "Category read s", "Id read s", "Title read s", "Status read s", "WindowId read i",
                    "IconName read s", "IconThemePath read s", "IconPixmap read a(iiay)",
                    "OverlayIconName read s", "OverlayIconPixmap read a(iiay)", "AttentionIconName read s",
                    "AttentionIconPixmap read a(iiay)", "AttentionMovieName read s",
                    "ToolTip read (sa(iiay)ss)", "ItemIsMenu read b", "Menu read o", "Activate i i",
                    "ContextMenu i i", "SecondaryActivate i i", "Scroll i s", "NewIcon"));
    EXPECT_THAT(describedMembers(description, QStringLiteral("com.canonical.dbusmenu")),
                testing::UnorderedElementsAre(
                    "Version read u", "TextDirection read s", "Status read s", "IconThemePath read as",
                    "GetLayout >u i i as >(ia{sv}av)", "GetGroupProperties >a(ia{sv}) ai as",
                    "GetProperty >v i s", "Event i s v u", "EventGroup >ai a(isvu)", "AboutToShow >b i",
                    "AboutToShowGroup >ai ai >ai", "ItemsPropertiesUpdated >a(ia{sv}) >a(ias)",
                    "LayoutUpdated >u >i"));
}

} // namespace
} // namespace tessel
