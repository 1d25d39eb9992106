#include "Desktop.h"

#include <chrono>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>

#include "OtherWindow.h"
#include "WaitUntil.h"
#include "X11/WindowAncestry.h"

namespace tessel {
namespace {

using X11ConnectionTests = BareDesktop;

TEST_F(X11ConnectionTests, anExtensionThatTheRoomNeedsIsFound)
{
    const X11Extensions& extensions = room.connection->extensions();
    EXPECT_TRUE(extensions.test && extensions.input && extensions.xkb && extensions.fixes);
    EXPECT_FALSE(extensions.wayland);
}

TEST_F(X11ConnectionTests, aReplyIsHandedOverInItsPlaceAmongTheEvents)
{
    std::vector<std::string> order;
    const auto owner = std::make_shared<char>();
    auto* raw = room.connection->raw();
    const Token events = room.connection->observeEvents([&](const xcb_generic_event_t& event) {
        if (eventKind(event) == XCB_PROPERTY_NOTIFY)
            order.push_back("event");
    });
    const auto touchRoot = [&] {
        xcb_change_property(raw, XCB_PROP_MODE_REPLACE, room.connection->root(),
                            room.connection->atoms().timestampProbe, XCB_ATOM_STRING, 8, 0, nullptr);
    };
    const auto ask = [&] {
        room.connection->whenReplied<xcb_get_input_focus_reply_t>(
            xcb_get_input_focus(raw), owner, [&](const auto*) { order.push_back("reply"); });
    };
    touchRoot();
    ask();
    touchRoot();
    ask();
    // Waiting reads all of it at once.
    room.connection->wait(xcb_get_input_focus_reply, xcb_get_input_focus(raw));
    EXPECT_TRUE(waitUntil([&] { return order.size() >= 4; }));
    EXPECT_EQ(order, (std::vector<std::string>{"event", "reply", "event", "reply"}));
}

TEST_F(X11ConnectionTests, theOrderIsKeptWhenAHandlerReadsWhatComesAfterIt)
{
    std::vector<std::string> order;
    const auto owner = std::make_shared<char>();
    auto* raw = room.connection->raw();
    const auto synchronize = [&] {
        room.connection->wait(xcb_get_input_focus_reply, xcb_get_input_focus(raw));
    };
    const Token events = room.connection->observeEvents([&](const xcb_generic_event_t& event) {
        if (eventKind(event) == XCB_PROPERTY_NOTIFY)
            order.push_back("event");
    });
    room.connection->whenReplied<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus(raw), owner, [&](const auto*) {
            order.push_back("first");
            xcb_change_property(raw, XCB_PROP_MODE_REPLACE, room.connection->root(),
                                room.connection->atoms().timestampProbe, XCB_ATOM_STRING, 8, 0, nullptr);
            room.connection->whenReplied<xcb_get_input_focus_reply_t>(
                xcb_get_input_focus(raw), owner, [&](const auto*) { order.push_back("second"); });
            synchronize();
        });
    synchronize();
    EXPECT_TRUE(waitUntil([&] { return order.size() >= 3; }));
    EXPECT_EQ(order, (std::vector<std::string>{"first", "event", "second"}));
}

TEST_F(X11ConnectionTests, nothingWakesTheProgramWhileNothingHappens)
{
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, 0x0300, {1, 1}));
    auto* loop = QAbstractEventDispatcher::instance();
    // First what the room has asked for when it was made.
    const auto owner = std::make_shared<char>();
    bool isSettled = false;
    room.connection->whenReplied<xcb_get_input_focus_reply_t>(xcb_get_input_focus(room.connection->raw()),
                                                              owner, [&](const auto*) { isSettled = true; });
    ASSERT_TRUE(waitUntil([&] { return isSettled; }));
    const auto isQuiet = [loop] {
        bool isOver = false;
        QTimer::singleShot(std::chrono::milliseconds{500}, [&] { isOver = true; });
        int wakeUps = 0;
        const auto counting = QObject::connect(loop, &QAbstractEventDispatcher::awake, [&] { ++wakeUps; });
        while (!isOver)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QObject::disconnect(counting);
        return wakeUps <= 3; // The timer alone needs one.
    };
    // What the tests before have left behind comes once; what polls never rests.
    bool hasRested = false;
    for (int round = 0; round < 20 && !hasRested; ++round)
        hasRested = isQuiet();
    EXPECT_TRUE(hasRested);
}

TEST_F(X11ConnectionTests, anErrorIsAReplyOfNothing)
{
    bool hasReplied = false;
    const auto owner = std::make_shared<char>();
    room.connection->whenReplied<xcb_query_tree_reply_t>(
        xcb_query_tree(room.connection->raw(), 1), owner,
        [&](const auto* reply) { hasReplied = reply == nullptr; });
    room.connection->flush();
    EXPECT_TRUE(waitUntil([&] { return hasReplied; }));
}

TEST_F(X11ConnectionTests, nothingRunsOnceTheOwnerIsGone)
{
    bool hasRun = false;
    auto owner = std::make_shared<char>();
    auto* raw = room.connection->raw();
    room.connection->whenReplied<xcb_get_input_focus_reply_t>(xcb_get_input_focus(raw), owner,
                                                              [&](const auto*) { hasRun = true; });
    owner.reset();
    bool isDone = false;
    const auto second = std::make_shared<char>();
    room.connection->whenReplied<xcb_get_input_focus_reply_t>(xcb_get_input_focus(raw), second,
                                                              [&](const auto*) { isDone = true; });
    room.connection->flush();
    EXPECT_TRUE(waitUntil([&] { return isDone; }));
    EXPECT_FALSE(hasRun);
}

TEST_F(X11ConnectionTests, selectionsOfTwoRoomsOnOneWindowAddUp)
{
    OtherWindow other;
    other.synchronize();
    int properties = 0;
    int maps = 0;
    const Token events = room.connection->observeEvents([&](const xcb_generic_event_t& event) {
        properties += eventKind(event) == XCB_PROPERTY_NOTIFY &&
                      eventAs<xcb_property_notify_event_t>(event).window == other.id();
        // Others may watch the root window, which tells of this one, too.
        maps +=
            eventKind(event) == XCB_MAP_NOTIFY && eventAs<xcb_map_notify_event_t>(event).event == other.id();
    });
    const Token first = room.connection->selectEvents(other.id(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    Token second = room.connection->selectEvents(other.id(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    room.connection->currentServerTime();
    other.setProperty("_NET_WM_PID", XCB_ATOM_CARDINAL, {1});
    other.show();
    EXPECT_TRUE(waitUntil([&] { return properties == 1 && maps == 1; }));
    second.reset();
    room.connection->currentServerTime();
    other.setProperty("_NET_WM_PID", XCB_ATOM_CARDINAL, {2});
    EXPECT_TRUE(waitUntil([&] { return properties == 2; }));
}

TEST_F(X11ConnectionTests, theServersTimeMovesOn)
{
    const auto first = room.connection->currentServerTime();
    const auto second = room.connection->currentServerTime();
    ASSERT_TRUE(first && second);
    EXPECT_GE(*second, *first);
}

TEST_F(X11ConnectionTests, theAncestryOfAWindowLeadsToTheRoot)
{
    OtherWindow other;
    other.show();
    other.takeFocusInside();
    other.synchronize();
    const auto focus =
        room.connection->wait(xcb_get_input_focus_reply, xcb_get_input_focus(room.connection->raw()));
    const WindowAncestry expected = {focus->focus, other.id()};
    EXPECT_EQ(ancestryOf(*room.connection, focus->focus), expected);
    std::optional<WindowAncestry> found;
    findAncestry(*room.connection, focus->focus, room.connection,
                 [&](const auto& ancestry) { found = ancestry; });
    EXPECT_TRUE(waitUntil([&] { return found.has_value(); }));
    EXPECT_EQ(found, expected);
}

TEST(X11ConnectionWithoutADisplay, everythingStaysInert)
{
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":99999");
    X11Room room = makeX11Room({});
    qputenv("DISPLAY", display);
    EXPECT_FALSE(room.connection->isAlive());
    EXPECT_EQ(room.hotKeyCenter->installEventHandler([](auto) { return 0; }), std::nullopt);
    EXPECT_EQ(room.hotKeyCenter->registerEventHotKey(9, 0x0300, {}), std::nullopt);
    EXPECT_EQ(room.workspace->frontmostApplication(), nullptr);
    EXPECT_FALSE(room.accessibilityTrust->isProcessTrusted());
    room.keyStrokes->postKeyStroke(9, ModifierFlags::command, std::nullopt);
    room.application->activate(IgnoringOtherApps::yes);
    EXPECT_FALSE(room.nativeWindows->blendsTranslucentWindows());
    EXPECT_EQ(room.screens->mouseLocation(), Point{});
    EXPECT_EQ(room.connection->currentServerTime(), std::nullopt);
}

TEST(X11ConnectionThatIsLost, everythingBecomesInert)
{
    auto server = std::make_unique<ChildProcess>(
        std::vector<std::string>{"Xvfb", "-displayfd", "%fd", "-noreset", "-screen", "0", "640x480x24"});
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", QByteArray::fromStdString(":" + server->firstLine()));
    X11Room room = makeX11Room({});
    qputenv("DISPLAY", display);
    ASSERT_TRUE(room.connection->isAlive());
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, 0x0300, {}));
    server.reset();
    EXPECT_TRUE(waitUntil([&] { return !room.connection->isAlive(); }));
    EXPECT_EQ(room.hotKeyCenter->registerEventHotKey(9, 0x1200, {}), std::nullopt);
    EXPECT_EQ(room.workspace->frontmostApplication(), nullptr);
    room.keyStrokes->postKeyStroke(9, ModifierFlags::command, std::nullopt);
}

} // namespace
} // namespace tessel
