#include "Desktop.h"

#include <algorithm>

#include "OtherWindow.h"
#include "TestManager.h"
#include "TestPanel.h"
#include "WaitUntil.h"
#include "X11/PropertyValue.h"

namespace tessel {
namespace {

template <class Desktop>
class NativeWindowTests : public Desktop {
protected:
    /// Waits until the room has had the answers to all that it has asked the server, and the server has done
    /// what followed from them.
    bool everythingIsAnswered()
    {
        bool isDone = false;
        const auto owner = std::make_shared<char>();
        auto& connection = *this->room.connection;
        connection.template whenReplied<xcb_get_input_focus_reply_t>(
            xcb_get_input_focus(connection.raw()), owner, [&](const auto*) { isDone = true; });
        if (!waitUntil([&] { return isDone; }))
            return false;
        auto* raw = this->room.toolkitWindows->raw();
        const X11Reply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(raw, xcb_get_input_focus(raw), nullptr));
        return reply != nullptr;
    }

    void openOnBehalfOfTheUser(TestPanel& window)
    {
        this->room.userTime->note(*this->room.connection->currentServerTime());
        window.open(this->room);
        ASSERT_TRUE(waitUntil([&] { return this->room.toolkitWindows->focusedWindow() == window.id(); }));
    }

    /// Is `upper` stacked above `lower`, each with the frame that a window manager may have put around it?
    bool isAbove(xcb_window_t upper, xcb_window_t lower)
    {
        auto& connection = *this->room.connection;
        const auto tree =
            connection.wait(xcb_query_tree_reply, xcb_query_tree(connection.raw(), connection.root()));
        const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
        return std::ranges::find(children, childOfRoot(upper)) >
               std::ranges::find(children, childOfRoot(lower));
    }
    xcb_window_t childOfRoot(xcb_window_t window)
    {
        auto& connection = *this->room.connection;
        const auto tree = connection.wait(xcb_query_tree_reply, xcb_query_tree(connection.raw(), window));
        return tree->parent == connection.root() ? window : childOfRoot(tree->parent);
    }

    std::vector<std::uint32_t> property(xcb_window_t window, xcb_atom_t name)
    {
        auto* raw = this->room.connection->raw();
        const auto reply = this->room.connection->wait(
            xcb_get_property_reply, xcb_get_property(raw, 0, window, name, XCB_ATOM_ANY, 0, 64));
        const auto units = unitsOf(reply.get());
        return {units.begin(), units.end()};
    }

    bool hasState(xcb_window_t window, std::initializer_list<xcb_atom_t> states)
    {
        const auto present = property(window, this->room.connection->atoms().netWindowState);
        return std::all_of(states.begin(), states.end(), [&](xcb_atom_t state) {
            return std::find(present.begin(), present.end(), state) != present.end();
        });
    }

    /// Not every window manager keeps the sticky state; the desktop number says the same.
    bool hasEveryTrait(xcb_window_t window)
    {
        const X11Atoms& atoms = this->room.connection->atoms();
        return hasState(window, {atoms.netWindowStateAbove, atoms.netWindowStateSkipTaskbar,
                                 atoms.netWindowStateSkipPager}) &&
               property(window, atoms.netWindowDesktop) == std::vector<std::uint32_t>{0xFFFFFFFF} &&
               property(window, atoms.netWindowType).front() == atoms.netWindowTypeUtility;
    }
};

using X11NativeWindowsBareTests = NativeWindowTests<BareDesktop>;
using X11NativeWindowsManagedTests = NativeWindowTests<ManagedDesktop>;

TEST_F(X11NativeWindowsManagedTests, aPreparedPanelHasItsTraitsOnScreenAndHasTheFocus)
{
    TestPanel panel;
    panel.prepare(room);
    panel.open(room);
    ASSERT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == panel.id(); }));
    EXPECT_TRUE(waitUntil([&] { return hasEveryTrait(panel.id()); }));
    constexpr std::size_t decorationsField = 2;
    EXPECT_EQ(property(panel.id(), room.connection->atoms().motifWindowHints).at(decorationsField), 0U);
    EXPECT_EQ(property(panel.id(), room.connection->atoms().compositorShadow), std::vector<std::uint32_t>{0});
}

TEST_F(X11NativeWindowsManagedTests, itsPositionIsMarkedAsTheUsersAndItTakesInput)
{
    TestPanel panel;
    panel.prepare(room);
    panel.open(room);
    ASSERT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == panel.id(); }));
    constexpr std::uint32_t userPosition = 1U << 0;
    constexpr std::uint32_t userSize = 1U << 1;
    const auto sizeHints = property(panel.id(), XCB_ATOM_WM_NORMAL_HINTS);
    ASSERT_FALSE(sizeHints.empty());
    EXPECT_EQ(sizeHints[0] & (userPosition | userSize), userPosition | userSize);
    constexpr std::uint32_t inputHint = 1U << 0;
    const auto hints = property(panel.id(), XCB_ATOM_WM_HINTS);
    ASSERT_GE(hints.size(), 2U);
    EXPECT_EQ(hints[0] & inputHint, inputHint);
    EXPECT_EQ(hints[1], 1U);
    const auto place = room.connection->wait(
        xcb_translate_coordinates_reply,
        xcb_translate_coordinates(room.connection->raw(), panel.id(), room.connection->root(), 0, 0));
    EXPECT_EQ(place->dst_x, 200);
    EXPECT_EQ(place->dst_y, 300);
}

TEST_F(X11NativeWindowsManagedTests, aPanelThatWasHiddenHasItsTraitsAgain)
{
    TestPanel panel;
    panel.prepare(room);
    for (int opening = 0; opening < 3; ++opening) {
        panel.open(room);
        ASSERT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == panel.id(); }));
        EXPECT_TRUE(waitUntil([&] { return hasEveryTrait(panel.id()); })) << "Opening " << opening;
        panel.hide();
        ASSERT_TRUE(waitUntil([&] { return !room.toolkitWindows->focusedWindow(); }));
        // Window managers take the state away from a hidden window.
        ASSERT_TRUE(
            waitUntil([&] { return property(panel.id(), room.connection->atoms().netWindowState).empty(); }));
    }
}

TEST_F(X11NativeWindowsManagedTests, thePanelGetsTheFocusOverAWindowThatTheUserHasJustUsed)
{
    OtherWindow other;
    other.show();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, 0x0300, {1, 1}));
    TestPanel panel;
    room.hotKeyCenter->installEventHandler([&](auto) {
        panel.prepare(room);
        panel.open(room);
        return 0;
    });
    typist.tap(Key::a);
    other.setProperty("_NET_WM_USER_TIME", XCB_ATOM_CARDINAL, {*room.connection->currentServerTime()});
    typist.tapWith({Key::superLeft, Key::shiftLeft}, Key::v);
    EXPECT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == panel.id(); }));
    EXPECT_TRUE(waitUntil([&] { return !other.hasFocus(); }));
}

TEST_F(X11NativeWindowsBareTests, withoutAWindowManagerThePanelGetsTheFocusToo)
{
    OtherWindow other;
    other.show();
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    TestPanel panel;
    panel.prepare(room);
    room.userTime->note(*room.connection->currentServerTime());
    panel.open(room);
    EXPECT_TRUE(
        waitUntil([&] { return room.toolkitWindows->focusedWindow() == panel.id() && !other.hasFocus(); }));
    EXPECT_TRUE(room.application->isActive());
}

TEST_F(X11NativeWindowsBareTests, aManagerThatGivesNoFocusMayMapThePanelLate)
{
    OtherWindow other;
    other.show();
    ASSERT_TRUE(waitUntil([&] { return other.isMapped(); }));
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    TestManager manager;
    manager.takeOver();
    TestPanel panel;
    panel.prepare(room);
    room.userTime->note(*room.connection->currentServerTime());
    for (int opening = 0; opening < 2; ++opening) {
        panel.open(room);
        ASSERT_TRUE(everythingIsAnswered());
        manager.map(panel.id());
        EXPECT_TRUE(waitUntil([&] {
            return room.toolkitWindows->focusedWindow() == panel.id() && !other.hasFocus();
        })) << "Opening "
            << opening;
        panel.hide();
        EXPECT_TRUE(waitUntil([&] { return other.hasFocus(); })) << "Opening " << opening;
    }
}

TEST_F(X11NativeWindowsBareTests, nothingIsAskedForAPanelThatIsHiddenAgainAtOnce)
{
    TestManager manager;
    manager.announce({"_NET_ACTIVE_WINDOW"});
    ASSERT_TRUE(waitUntil([&] { return room.windowManager->maintainsActiveWindow(); }));
    TestPanel panel;
    panel.prepare(room);
    // What is sent to the root window for a window manager everybody may see.
    int desktopRequests = 0;
    const Token selected =
        room.connection->selectEvents(room.connection->root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    const Token requests = room.connection->observeEvents([&](const xcb_generic_event_t& event) {
        if (eventKind(event) != XCB_CLIENT_MESSAGE)
            return;
        const auto& message = eventAs<xcb_client_message_event_t>(event);
        if (message.window == panel.id() && message.type == room.connection->atoms().netWindowDesktop)
            ++desktopRequests;
    });
    int unmappings = 0;
    const Token unmapped = room.toolkitWindows->observeUnmapping([&](xcb_window_t) { ++unmappings; });
    panel.open(room);
    panel.hide();
    ASSERT_TRUE(waitUntil([&] { return unmappings == 1; }));
    ASSERT_TRUE(everythingIsAnswered());
    EXPECT_EQ(desktopRequests, 0);
    panel.open(room);
    EXPECT_TRUE(waitUntil([&] { return desktopRequests == 1; }));
}

TEST_F(X11NativeWindowsBareTests, withoutAWindowManagerAHiddenPanelGivesTheFocusBack)
{
    OtherWindow other;
    other.show();
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    TestPanel panel;
    panel.prepare(room);
    room.userTime->note(*room.connection->currentServerTime());
    panel.open(room);
    ASSERT_TRUE(
        waitUntil([&] { return room.toolkitWindows->focusedWindow() == panel.id() && !other.hasFocus(); }));
    panel.hide();
    EXPECT_TRUE(waitUntil([&] { return other.hasFocus(); }));
}

TEST_F(X11NativeWindowsBareTests, aFocusThatWentElsewhereStaysThereWhenThePanelIsHidden)
{
    OtherWindow first;
    OtherWindow second;
    first.show();
    second.show();
    first.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return first.hasFocus(); }));
    TestPanel panel;
    panel.prepare(room);
    panel.open(room); // Without a time of the user, which the server would compare.
    ASSERT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == panel.id(); }));
    second.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return second.hasFocus(); }));
    bool isUnmapped = false;
    const Token token = room.toolkitWindows->observeUnmapping([&](xcb_window_t) { isUnmapped = true; });
    panel.hide();
    ASSERT_TRUE(waitUntil([&] { return isUnmapped; }));
    ASSERT_TRUE(everythingIsAnswered());
    second.synchronize();
    EXPECT_TRUE(second.hasFocus());
}

TEST_F(X11NativeWindowsBareTests, aPanelThatFollowsAnotherAtOnceGivesTheFocusBackToWhoHadItFirst)
{
    OtherWindow other;
    other.show();
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    TestPanel first;
    first.prepare(room);
    room.userTime->note(*room.connection->currentServerTime());
    first.open(room);
    ASSERT_TRUE(
        waitUntil([&] { return room.toolkitWindows->focusedWindow() == first.id() && !other.hasFocus(); }));
    TestPanel second;
    second.prepare(room);
    first.hide();
    second.open(room);
    ASSERT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == second.id(); }));
    second.hide();
    EXPECT_TRUE(waitUntil([&] { return other.hasFocus(); }));
}

TEST_F(X11NativeWindowsBareTests, everyWindowGivesTheFocusBackToWhoHadItBeforeIt)
{
    OtherWindow other;
    other.show();
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    TestPanel settings;
    TestPanel panel;
    openOnBehalfOfTheUser(settings);
    openOnBehalfOfTheUser(panel);
    panel.hide();
    ASSERT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == settings.id(); }));
    settings.hide();
    EXPECT_TRUE(waitUntil([&] { return other.hasFocus(); }));
}

TEST_F(X11NativeWindowsBareTests, aWindowThatHasGoneMeanwhileIsPassedOver)
{
    OtherWindow other;
    other.show();
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    TestPanel settings;
    TestPanel panel;
    openOnBehalfOfTheUser(settings);
    openOnBehalfOfTheUser(panel);
    bool isUnmapped = false;
    const Token token = room.toolkitWindows->observeUnmapping([&](xcb_window_t) { isUnmapped = true; });
    settings.hide();
    ASSERT_TRUE(waitUntil([&] { return isUnmapped; }));
    ASSERT_TRUE(everythingIsAnswered());
    panel.hide();
    EXPECT_TRUE(waitUntil([&] { return other.hasFocus(); }));
}

TEST_F(X11NativeWindowsBareTests, aWindowWhoseTaskAnotherHasTakenOverIsPassedOverToo)
{
    OtherWindow other;
    other.show();
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    TestPanel settings;
    TestPanel about;
    TestPanel panel;
    openOnBehalfOfTheUser(settings);
    openOnBehalfOfTheUser(about);
    // The panel is there before it is read that the settings have gone.
    settings.hide();
    openOnBehalfOfTheUser(panel);
    panel.hide();
    ASSERT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == about.id(); }));
    about.hide();
    EXPECT_TRUE(waitUntil([&] { return other.hasFocus(); }));
}

TEST_F(X11NativeWindowsBareTests, theFocusGoesBackToWhoHadItLastNotFirst)
{
    OtherWindow first;
    OtherWindow second;
    first.show();
    second.show();
    first.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return first.hasFocus(); }));
    TestPanel settings;
    openOnBehalfOfTheUser(settings);
    second.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return second.hasFocus() && !room.toolkitWindows->focusedWindow(); }));
    openOnBehalfOfTheUser(settings);
    settings.hide();
    EXPECT_TRUE(waitUntil([&] { return second.hasFocus(); }));
}

TEST_F(X11NativeWindowsBareTests, orderFrontRaisesAndLeavesTheFocus)
{
    TestPanel ours;
    openOnBehalfOfTheUser(ours);
    OtherWindow other;
    other.show();
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus() && isAbove(other.id(), ours.id()); }));
    room.nativeWindows->orderFront(ours.handle());
    EXPECT_TRUE(waitUntil([&] { return isAbove(ours.id(), other.id()); }));
    ASSERT_TRUE(everythingIsAnswered());
    other.synchronize();
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(X11NativeWindowsManagedTests, orderFrontRaisesAndLeavesTheFocus)
{
    TestPanel ours; // Not prepared: an ordinary window.
    ours.setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    openOnBehalfOfTheUser(ours);
    OtherWindow other;
    other.show();
    ASSERT_TRUE(waitUntil([&] { return other.isMapped(); }));
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus(); }));
    other.raise();
    ASSERT_TRUE(waitUntil([&] { return isAbove(other.id(), ours.id()); }));
    room.nativeWindows->orderFront(ours.handle());
    EXPECT_TRUE(waitUntil([&] { return isAbove(ours.id(), other.id()); }));
    ASSERT_TRUE(everythingIsAnswered());
    other.synchronize();
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(X11NativeWindowsManagedTests, theApplicationsActivationGivesTheFocusToTheWindowOrderedFront)
{
    TestPanel settings;
    TestPanel about;
    openOnBehalfOfTheUser(settings);
    openOnBehalfOfTheUser(about);
    OtherWindow other;
    other.show();
    other.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return other.hasFocus() && !room.toolkitWindows->focusedWindow(); }));
    room.userTime->note(*room.connection->currentServerTime());
    room.nativeWindows->orderFront(settings.handle());
    room.application->activate(IgnoringOtherApps::yes);
    EXPECT_TRUE(waitUntil([&] { return room.toolkitWindows->focusedWindow() == settings.id(); }));
}

TEST_F(X11NativeWindowsBareTests, aCompositingManagerIsNoticedAsItComesAndGoes)
{
    EXPECT_FALSE(room.nativeWindows->blendsTranslucentWindows());
    std::vector<bool> told;
    const Token observation = room.nativeWindows->observeBlending(
        [&] { told.push_back(room.nativeWindows->blendsTranslucentWindows()); });
    auto* raw = xcb_connect(nullptr, nullptr);
    const xcb_window_t window = xcb_generate_id(raw);
    const auto root = room.connection->root();
    xcb_create_window(raw, 0, window, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                      0, nullptr);
    xcb_set_selection_owner(raw, window, room.connection->atoms().compositingManager, XCB_CURRENT_TIME);
    xcb_flush(raw);
    EXPECT_TRUE(waitUntil([&] { return room.nativeWindows->blendsTranslucentWindows(); }));
    xcb_disconnect(raw);
    EXPECT_TRUE(waitUntil([&] { return !room.nativeWindows->blendsTranslucentWindows(); }));
    EXPECT_EQ(told, (std::vector{true, false}));
}

TEST_F(X11NativeWindowsBareTests, aWindowIsToldThatOthersCoverIt)
{
    TestPanel window;
    std::optional<bool> isCovered;
    const Token observation =
        room.nativeWindows->observeOcclusion(window.handle(), [&](bool covered) { isCovered = covered; });
    window.show();
    ASSERT_TRUE(waitUntil([&] { return room.toolkitWindows->isShown(window.id()); }));
    ASSERT_TRUE(everythingIsAnswered());
    OtherWindow other;
    other.show();
    // Until the events have been asked for, nobody tells: it is covered and uncovered until they are.
    const auto place = [&](bool above) {
        const std::array<std::uint32_t, 5> values = {0, 0, 1000, 700,
                                                     above ? XCB_STACK_MODE_ABOVE : XCB_STACK_MODE_BELOW};
        xcb_configure_window(room.connection->raw(), other.id(),
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                 XCB_CONFIG_WINDOW_HEIGHT | XCB_CONFIG_WINDOW_STACK_MODE,
                             values.data());
        xcb_flush(room.connection->raw());
    };
    bool above = false;
    EXPECT_TRUE(waitUntil([&] {
        place(above = !above);
        return isCovered == true;
    }));
    place(false);
    EXPECT_TRUE(waitUntil([&] { return isCovered == false; }));
}

} // namespace
} // namespace tessel
