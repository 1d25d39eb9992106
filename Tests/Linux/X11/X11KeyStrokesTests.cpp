#include "Desktop.h"

#include <QtCore/QElapsedTimer>

#include "OtherWindow.h"
#include "WaitUntil.h"

namespace tessel {
namespace {

constexpr std::uint32_t controlShift = 0x1200;

/// In milliseconds.
constexpr int timerPrecision = 5;

/// What pasting into other windows has in common with and without a window manager.
template <class Desktop>
class PastingTests : public Desktop {
protected:
    void SetUp() override
    {
        Desktop::SetUp();
        // A stroke that ends has not ended for want of patience.
        setPatience({std::chrono::hours{1}, std::chrono::hours{1}});
    }

    void setPatience(PastePatience patience)
    {
        auto& it = this->room;
        it.keyStrokes = std::make_shared<X11KeyStrokes>(
            it.connection, it.keyboard, it.hotKeyCenter,
            [this] {
                ++this->primaryOffers;
                return this->pastedIsText;
            },
            std::function<void(std::function<void()>)>{}, patience);
    }

    /// With a repetition that is quick, so that there are some to see.
    void holdReturnDown()
    {
        ASSERT_TRUE(runProgram({"xset", "r", "on", "r", "rate", "150", "50"}));
        this->typist.press(Key::returnKey);
    }

    void post(std::optional<ProcessIdentifier> process)
    {
        this->room.keyStrokes->postKeyStroke(VirtualKey::v, ModifierFlags::command, process);
    }

    bool waitForStrokes()
    {
        return waitUntil([this] { return !this->room.keyStrokes->isBusy(); });
    }

    void showWithFocus(OtherWindow& window)
    {
        window.show();
        ASSERT_TRUE(waitUntil([&] { return window.isMapped(); }));
        window.takeFocus();
        ASSERT_TRUE(waitUntil([&] { return window.hasFocus(); }));
    }

    /// Posts, waits until it is over, and reads what the window has received.
    void paste(OtherWindow& window, std::optional<ProcessIdentifier> process)
    {
        post(process);
        ASSERT_TRUE(waitForStrokes());
        window.synchronize();
    }
};

using X11KeyStrokesTests = PastingTests<BareDesktop>;
using X11KeyStrokesManagedTests = PastingTests<ManagedDesktop>;

TEST_F(X11KeyStrokesTests, aFocusedTargetReceivesExactlyOneControlV)
{
    OtherWindow target;
    showWithFocus(target);
    paste(target, target.process());
    const std::vector<OtherWindow::Stroke> expected = {{Key::controlLeft, Modifier::none, true},
                                                       {Key::v, Modifier::control, true},
                                                       {Key::v, Modifier::control, false},
                                                       {Key::controlLeft, Modifier::control, false}};
    EXPECT_EQ(target.strokes(), expected);
    EXPECT_TRUE(typist.keysDown().none());
}

TEST_F(X11KeyStrokesTests, onlyCommandVIsPosted)
{
    OtherWindow target;
    showWithFocus(target);
    room.keyStrokes->postKeyStroke(VirtualKey::p, ModifierFlags::command, target.process());
    room.keyStrokes->postKeyStroke(VirtualKey::v, ModifierFlags::shift, target.process());
    EXPECT_FALSE(room.keyStrokes->isBusy());
    target.synchronize();
    EXPECT_EQ(target.presses(), 0);
}

TEST_F(X11KeyStrokesTests, withoutATargetWhoeverHasTheFocusReceivesIt)
{
    OtherWindow window;
    showWithFocus(window);
    paste(window, std::nullopt);
    EXPECT_EQ(window.presses(Key::v, Modifier::control), 1);
}

TEST_F(X11KeyStrokesTests, withoutATargetTheChordIsThatOfTheFocusedWindow)
{
    OtherWindow terminal("kitty");
    showWithFocus(terminal);
    terminal.takeFocusInside();
    paste(terminal, std::nullopt);
    EXPECT_EQ(terminal.presses(Key::v, Modifier::control | Modifier::shift), 1);
}

TEST_F(X11KeyStrokesTests, aWindowInsideTheTargetMayHaveTheFocus)
{
    OtherWindow target;
    showWithFocus(target);
    target.takeFocusInside();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
}

TEST_F(X11KeyStrokesTests, aTargetThatGetsTheFocusInTimeReceivesIt)
{
    OtherWindow target;
    OtherWindow bystander;
    showWithFocus(target);
    showWithFocus(bystander);
    post(target.process());
    EXPECT_TRUE(room.keyStrokes->isBusy());
    // The stroke has looked at the focus and is waiting by now.
    bystander.synchronize();
    room.connection->currentServerTime();
    target.takeFocus();
    ASSERT_TRUE(waitForStrokes());
    target.synchronize();
    bystander.synchronize();
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
    EXPECT_EQ(bystander.presses(), 0);
}

TEST_F(X11KeyStrokesTests, aTargetThatDoesNotGetTheFocusReceivesNothingAndNobodyElseDoes)
{
    OtherWindow target;
    OtherWindow bystander;
    showWithFocus(target);
    showWithFocus(bystander);
    constexpr PastePatience patience{.focus = std::chrono::milliseconds{400}};
    setPatience(patience);
    QElapsedTimer timer;
    timer.start();
    post(target.process());
    ASSERT_TRUE(waitForStrokes());
    EXPECT_GE(timer.elapsed(), patience.focus.count() - timerPrecision);
    target.takeFocus();
    target.synchronize();
    bystander.synchronize();
    EXPECT_EQ(target.presses(), 0);
    EXPECT_EQ(bystander.presses(), 0);
}

TEST_F(X11KeyStrokesTests, aFocusThatCameInTimeCountsWhereItIsNoticedLate)
{
    OtherWindow target;
    OtherWindow bystander;
    showWithFocus(target);
    showWithFocus(bystander);
    setPatience({.focus = std::chrono::milliseconds{0}});
    post(target.process());
    room.connection->currentServerTime();
    target.takeFocus();
    target.synchronize();
    ASSERT_TRUE(waitForStrokes());
    target.synchronize();
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
}

TEST_F(X11KeyStrokesTests, aTargetThatIsClosedEndsTheStroke)
{
    OtherWindow bystander;
    {
        OtherWindow target;
        showWithFocus(target);
        showWithFocus(bystander);
        post(target.process());
        target.closeWindow();
        ASSERT_TRUE(waitForStrokes());
    }
    bystander.synchronize();
    EXPECT_EQ(bystander.presses(), 0);
}

TEST_F(X11KeyStrokesTests, aTargetThatWasClosedLongAgoEndsTheStroke)
{
    OtherWindow bystander;
    showWithFocus(bystander);
    ProcessIdentifier gone{};
    {
        OtherWindow target;
        gone = target.process();
    }
    paste(bystander, gone);
    EXPECT_EQ(bystander.presses(), 0);
}

TEST_F(X11KeyStrokesTests, aRoomThatEndsWhileItWaitsPostsNothing)
{
    OtherWindow target;
    OtherWindow bystander;
    showWithFocus(target);
    showWithFocus(bystander);
    post(target.process());
    room.keyStrokes.reset();
    target.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return target.hasFocus(); }));
    room.connection->currentServerTime();
    target.synchronize();
    EXPECT_EQ(target.presses(), 0);
}

TEST_F(X11KeyStrokesTests, terminalsReceiveTheirOwnChord)
{
    OtherWindow terminal("Gnome-terminal");
    showWithFocus(terminal);
    paste(terminal, terminal.process());
    EXPECT_EQ(terminal.presses(Key::v, Modifier::control | Modifier::shift), 1);
    EXPECT_EQ(terminal.presses(), 1);
    EXPECT_EQ(primaryOffers, 0);
}

TEST_F(X11KeyStrokesTests, primaryIsOfferedBeforeShiftInsert)
{
    OtherWindow terminal("XTerm");
    showWithFocus(terminal);
    paste(terminal, terminal.process());
    EXPECT_EQ(terminal.presses(Key::insert, Modifier::shift), 1);
    EXPECT_EQ(terminal.presses(), 1);
    EXPECT_EQ(primaryOffers, 1);
}

TEST_F(X11KeyStrokesTests, aPictureIsNotPastedWhereTheChordWouldPasteWhatSomebodyHasSelected)
{
    pastedIsText = false;
    OtherWindow terminal("XTerm");
    showWithFocus(terminal);
    paste(terminal, terminal.process());
    EXPECT_EQ(primaryOffers, 1);
    EXPECT_EQ(terminal.presses(), 0);
}

TEST_F(X11KeyStrokesTests, ourOwnHotKeyDoesNotCatchTheChordAndIsBackAfterIt)
{
    int presses = 0;
    room.hotKeyCenter->installEventHandler([&](auto) { return ++presses; });
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, controlShift, {1, 1}));
    OtherWindow terminal("konsole");
    showWithFocus(terminal);
    paste(terminal, terminal.process());
    EXPECT_EQ(terminal.presses(Key::v, Modifier::control | Modifier::shift), 1);
    room.connection->currentServerTime();
    EXPECT_EQ(presses, 0);
    typist.tapWith({Key::controlLeft, Key::shiftLeft}, Key::v);
    EXPECT_TRUE(waitUntil([&] { return presses == 1; }));
    terminal.synchronize();
    EXPECT_EQ(terminal.presses(), 1);
}

TEST_F(X11KeyStrokesTests, aHotKeyThatIsStillHeldDoesNotGetInTheWay)
{
    int presses = 0;
    room.hotKeyCenter->installEventHandler([&](auto) { return ++presses; });
    ASSERT_TRUE(room.hotKeyCenter->registerEventHotKey(9, controlShift, {1, 1}));
    OtherWindow target;
    showWithFocus(target);
    typist.press(Key::controlLeft);
    typist.press(Key::shiftLeft);
    typist.press(Key::v);
    ASSERT_TRUE(waitUntil([&] { return presses == 1; }));
    target.forget();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
    typist.release(Key::v);
    typist.release(Key::shiftLeft);
    typist.release(Key::controlLeft);
    EXPECT_TRUE(waitUntil([&] { return typist.keysDown().none() && typist.keysDownOnXTest().none(); }));
    typist.tapWith({Key::controlLeft, Key::shiftLeft}, Key::v);
    EXPECT_TRUE(waitUntil([&] { return presses == 2; }));
}

TEST_F(X11KeyStrokesTests, heldModifiersAreLiftedAndPutBackWhileTheyAreHeld)
{
    OtherWindow target;
    showWithFocus(target);
    typist.press(Key::superLeft);
    typist.press(Key::shiftLeft);
    typist.synchronize();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1) << "The chord has to be pure.";
    EXPECT_EQ(target.presses(), 1);
    EXPECT_TRUE(typist.keysDown()[Key::superLeft] && typist.keysDown()[Key::shiftLeft]);
    typist.release(Key::shiftLeft);
    EXPECT_TRUE(waitUntil([&] { return !typist.keysDownOnXTest()[Key::shiftLeft]; }));
    EXPECT_TRUE(typist.keysDown()[Key::superLeft]);
    typist.release(Key::superLeft);
    EXPECT_TRUE(waitUntil([&] { return typist.keysDown().none() && typist.keysDownOnXTest().none(); }));
}

TEST_F(X11KeyStrokesTests, aModifierThatIsPartOfTheChordMayBeHeld)
{
    OtherWindow target;
    showWithFocus(target);
    typist.press(Key::controlLeft);
    typist.synchronize();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
    target.forget();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1) << "A second paste under the same finger.";
    typist.release(Key::controlLeft);
    EXPECT_TRUE(waitUntil([&] { return typist.keysDown().none() && typist.keysDownOnXTest().none(); }));
}

TEST_F(X11KeyStrokesTests, puttingAKeyBackWakesNobodyWhoHasGrabbedThatKeyAlone)
{
    OtherWindow launcher("Launcher");
    OtherWindow target;
    showWithFocus(target);
    ASSERT_TRUE(launcher.grabKey(Key::superLeft, Modifier::none));
    typist.press(Key::superLeft);
    launcher.synchronize();
    ASSERT_EQ(launcher.strokes(), (std::vector<OtherWindow::Stroke>{{Key::superLeft, Modifier::none, true}}));
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1) << "The launcher has the keyboard no longer.";
    EXPECT_EQ(target.presses(), 1);
    EXPECT_TRUE(typist.keysDown()[Key::superLeft]) << "It is under a finger.";
    launcher.synchronize();
    const OtherWindow::Stroke press{Key::superLeft, Modifier::none, true};
    EXPECT_EQ(std::count(launcher.strokes().begin(), launcher.strokes().end(), press), 1);
    typist.release(Key::superLeft);
    EXPECT_TRUE(waitUntil([&] { return typist.keysDown().none() && typist.keysDownOnXTest().none(); }));
}

TEST_F(X11KeyStrokesTests, theTargetSeesAHeldKeyComeUpAndNothingButTheChord)
{
    OtherWindow target;
    showWithFocus(target);
    typist.press(Key::altLeft);
    typist.synchronize();
    paste(target, target.process());
    const std::vector<OtherWindow::Stroke> expected = {
        {Key::altLeft, Modifier::none, true},     {Key::altLeft, Modifier::alt, false},
        {Key::controlLeft, Modifier::none, true}, {Key::v, Modifier::control, true},
        {Key::v, Modifier::control, false},       {Key::controlLeft, Modifier::control, false}};
    EXPECT_EQ(target.strokes(), expected);
    typist.release(Key::altLeft);
    EXPECT_TRUE(waitUntil([&] { return typist.keysDown().none() && typist.keysDownOnXTest().none(); }));
}

TEST_F(X11KeyStrokesTests, aRoomThatEndsLeavesNoKeyPressed)
{
    OtherWindow target;
    showWithFocus(target);
    typist.press(Key::shiftLeft);
    typist.synchronize();
    paste(target, target.process());
    room.keyStrokes.reset();
    typist.release(Key::shiftLeft);
    EXPECT_TRUE(waitUntil([&] { return typist.keysDown().none() && typist.keysDownOnXTest().none(); }));
}

TEST_F(X11KeyStrokesTests, locksStayAsTheyAre)
{
    OtherWindow target;
    showWithFocus(target);
    typist.tap(Key::capsLock);
    typist.tap(Key::numLock);
    typist.synchronize();
    target.synchronize();
    target.forget();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::v, Modifier::control | Modifier::lock | Modifier::numLock), 1);
    typist.tap(Key::a);
    target.synchronize();
    EXPECT_EQ(target.presses(Key::a, Modifier::lock | Modifier::numLock), 1);
    typist.tap(Key::capsLock);
    typist.tap(Key::numLock);
    typist.synchronize();
}

TEST_F(X11KeyStrokesTests, aHeldCapsLockIsNotTouched)
{
    OtherWindow target;
    showWithFocus(target);
    typist.press(Key::capsLock);
    typist.synchronize();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::v, Modifier::control | Modifier::lock), 1);
    typist.release(Key::capsLock);
    typist.tap(Key::capsLock);
    typist.tap(Key::a);
    target.synchronize();
    EXPECT_EQ(target.presses(Key::a, Modifier::none), 1);
}

TEST_F(X11KeyStrokesTests, theLettersKeyIsThatOfTheLayout)
{
    OtherWindow target;
    showWithFocus(target);
    typist.setLayout("us", "dvorak");
    ASSERT_TRUE(waitUntil([&] { return keyForLatinV(room.keyboard->keymap(), 0) == Key::fullStop; }));
    target.forget();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::fullStop, Modifier::control), 1);
    EXPECT_EQ(target.presses(), 1);
}

TEST_F(X11KeyStrokesTests, aLayoutWithoutLatinLettersUsesTheVPosition)
{
    OtherWindow target;
    showWithFocus(target);
    typist.setLayout("us,ru", "dvorak,");
    ASSERT_TRUE(waitUntil([&] { return keyForLatinV(room.keyboard->keymap(), 0) == Key::fullStop; }));
    typist.lockGroup(1);
    target.forget();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::v, Modifier::control | Modifier::secondGroup), 1);
    typist.lockGroup(0);
    target.forget();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::fullStop, Modifier::control), 1);
}

TEST_F(X11KeyStrokesTests, aHeldReturnDoesNotRepeatIntoTheTargetAndTheChordFollowsItsRelease)
{
    OtherWindow target;
    OtherWindow panel;
    showWithFocus(target);
    showWithFocus(panel);
    holdReturnDown();
    ASSERT_TRUE(waitUntil([&] { return panel.presses() >= 1; }));
    int repetitions = 0;
    const Token token = room.connection->observeEvents(
        [&](const xcb_generic_event_t& event) { repetitions += eventKind(event) == XCB_KEY_PRESS; });
    room.keyStrokes->targetWillGetFocus();
    room.connection->currentServerTime();
    target.takeFocus();
    post(target.process());
    ASSERT_TRUE(waitUntil([&] { return repetitions >= 5; })) << "The repetitions have to come to us.";
    target.synchronize();
    EXPECT_EQ(target.presses(), 0);
    EXPECT_TRUE(room.keyStrokes->isBusy());
    typist.release(Key::returnKey);
    ASSERT_TRUE(waitForStrokes());
    target.synchronize();
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
    EXPECT_EQ(target.presses(), 1);
    typist.tap(Key::a);
    target.synchronize();
    EXPECT_EQ(target.presses(Key::a, Modifier::none), 1) << "The keyboard is free again.";
}

TEST_F(X11KeyStrokesTests, aHeldReturnIsKeptFromEverybodyAlsoWhenTheTargetIsClosed)
{
    OtherWindow bystander;
    OtherWindow panel;
    showWithFocus(bystander);
    {
        OtherWindow target;
        showWithFocus(target);
        showWithFocus(panel);
        holdReturnDown();
        ASSERT_TRUE(waitUntil([&] { return panel.presses() >= 1; }));
        room.keyStrokes->targetWillGetFocus();
        post(target.process());
        target.closeWindow();
    }
    ASSERT_TRUE(waitForStrokes());
    room.connection->currentServerTime();
    bystander.takeFocus();
    int repetitions = 0;
    const Token token = room.connection->observeEvents(
        [&](const xcb_generic_event_t& event) { repetitions += eventKind(event) == XCB_KEY_PRESS; });
    EXPECT_TRUE(waitUntil([&] { return repetitions >= 5; }));
    typist.release(Key::returnKey);
    EXPECT_TRUE(waitUntil([&] { return bystander.grabKeyboard(); })) << "The keyboard is free again.";
    bystander.ungrabKeyboard();
    bystander.synchronize();
    EXPECT_EQ(bystander.presses(), 0);
}

TEST_F(X11KeyStrokesTests, noGrabOfTheKeyboardOutlivesTheKeyStrokes)
{
    OtherWindow panel;
    OtherWindow locker;
    showWithFocus(panel);
    typist.press(Key::returnKey);
    typist.synchronize();
    room.keyStrokes->targetWillGetFocus();
    room.keyStrokes.reset();
    room.connection->currentServerTime();
    EXPECT_TRUE(locker.grabKeyboard());
    locker.ungrabKeyboard();
    typist.release(Key::returnKey);
}

TEST_F(X11KeyStrokesTests, aProgramThatHasGrabbedTheKeyboardIsNotPastedInto)
{
    OtherWindow target;
    OtherWindow locker;
    showWithFocus(target);
    ASSERT_TRUE(locker.grabKeyboard());
    paste(target, target.process());
    locker.synchronize();
    EXPECT_EQ(target.presses(), 0);
    EXPECT_EQ(locker.presses(), 0);
    locker.ungrabKeyboard();
    locker.synchronize();
    paste(target, target.process());
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
}

TEST_F(X11KeyStrokesTests, theFocusMayTakeItsTimeAfterTheRelease)
{
    OtherWindow target;
    OtherWindow panel;
    showWithFocus(target);
    showWithFocus(panel);
    setPatience({.focus = std::chrono::milliseconds{400}, .release = std::chrono::hours{1}});
    ASSERT_TRUE(runProgram({"xset", "r", "on", "r", "rate", "60", "50"}));
    typist.press(Key::keypadEnter);
    typist.synchronize();
    int repetitions = 0;
    const Token token = room.connection->observeEvents(
        [&](const xcb_generic_event_t& event) { repetitions += eventKind(event) == XCB_KEY_PRESS; });
    post(target.process());
    ASSERT_TRUE(waitUntil([&] { return repetitions >= 30; })) << "Longer than the patience for the focus.";
    typist.release(Key::keypadEnter);
    typist.synchronize();
    room.connection->currentServerTime();
    target.takeFocus();
    ASSERT_TRUE(waitForStrokes());
    target.synchronize();
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
}

TEST_F(X11KeyStrokesTests, aReturnThatIsNeverReleasedIsLiftedAfterTwoSeconds)
{
    OtherWindow target;
    showWithFocus(target);
    ASSERT_TRUE(runProgram({"xset", "r", "off"}));
    typist.press(Key::returnKey);
    ASSERT_TRUE(waitUntil([&] { return target.presses() == 1; }));
    target.forget();
    constexpr PastePatience patience;
    setPatience({.focus = std::chrono::hours{1}, .release = patience.release});
    QElapsedTimer timer;
    timer.start();
    paste(target, target.process());
    EXPECT_GE(timer.elapsed(), patience.release.count() - timerPrecision);
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
    EXPECT_EQ(target.presses(), 1);
    EXPECT_TRUE(typist.keysDown().none()) << "The Return is up for everybody.";
    typist.release(Key::returnKey);
    typist.tap(Key::returnKey);
    target.synchronize();
    EXPECT_EQ(target.presses(Key::returnKey, Modifier::none), 1) << "The next Return is one again.";
}

TEST_F(X11KeyStrokesTests, strokesInQuickSuccessionAreEachPlayedOnce)
{
    OtherWindow first;
    OtherWindow second("XTerm");
    showWithFocus(second);
    showWithFocus(first);
    for (int count = 0; count < 5; ++count)
        post(first.process());
    ASSERT_TRUE(waitForStrokes());
    first.synchronize();
    EXPECT_EQ(first.presses(Key::v, Modifier::control), 5);
    EXPECT_EQ(first.presses(), 5);
    second.synchronize();
    EXPECT_EQ(second.presses(), 0);
}

/// Pasting while the server has not yet said that the value is ours.
class AvailabilityTests : public PastingTests<BareDesktop> {
protected:
    void SetUp() override
    {
        BareDesktop::SetUp();
        room.keyStrokes = std::make_shared<X11KeyStrokes>(
            room.connection, room.keyboard, room.hotKeyCenter,
            [this] { return steps.push_back("offer PRIMARY"), true; },
            [this](std::function<void()> goOn) {
                steps.push_back("await");
                available.push_back(std::move(goOn));
            });
    }

    void postAndWaitUntilAsked(OtherWindow& window, std::size_t times = 1)
    {
        post(window.process());
        ASSERT_TRUE(waitUntil([&] { return available.size() == times; }));
    }

    std::vector<std::string> steps;
    std::vector<std::function<void()>> available;
};

TEST_F(AvailabilityTests, theChordWaitsForTheValueHoweverLongThatTakes)
{
    OtherWindow target;
    showWithFocus(target);
    postAndWaitUntilAsked(target);
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(waitUntil([&] { return timer.elapsed() > 600; }))
        << "Longer than the patience for the focus.";
    target.synchronize();
    EXPECT_EQ(target.presses(), 0);
    EXPECT_TRUE(room.keyStrokes->isBusy());
    available.front()();
    ASSERT_TRUE(waitForStrokes());
    target.synchronize();
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
    EXPECT_EQ(target.presses(), 1);
    EXPECT_EQ(available.size(), 1U);
}

TEST_F(AvailabilityTests, primaryIsOfferedBeforeItIsAwaited)
{
    OtherWindow terminal("XTerm");
    showWithFocus(terminal);
    postAndWaitUntilAsked(terminal);
    EXPECT_EQ(steps, (std::vector<std::string>{"offer PRIMARY", "await"}));
    available.front()();
    ASSERT_TRUE(waitForStrokes());
    terminal.synchronize();
    EXPECT_EQ(terminal.presses(Key::insert, Modifier::shift), 1);
}

TEST_F(AvailabilityTests, aFocusThatMovesAwayMeanwhileGetsNothing)
{
    OtherWindow target;
    OtherWindow bystander("XTerm");
    showWithFocus(bystander);
    showWithFocus(target);
    postAndWaitUntilAsked(target);
    bystander.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return bystander.hasFocus(); }));
    available.front()();
    ASSERT_TRUE(waitForStrokes());
    target.synchronize();
    bystander.synchronize();
    EXPECT_EQ(target.presses(), 0);
    EXPECT_EQ(bystander.presses(), 0);
}

TEST_F(AvailabilityTests, aTargetThatIsClosedMeanwhileEndsTheStrokeAndTheNextOneIsPlayed)
{
    OtherWindow next;
    {
        OtherWindow target;
        showWithFocus(target);
        postAndWaitUntilAsked(target);
    }
    ASSERT_TRUE(waitForStrokes());
    available.front()();
    showWithFocus(next);
    postAndWaitUntilAsked(next, 2);
    available.back()();
    ASSERT_TRUE(waitForStrokes());
    next.synchronize();
    EXPECT_EQ(next.presses(), 1);
}

TEST_F(AvailabilityTests, theWordMayComeWhenTheRoomIsGone)
{
    OtherWindow target;
    showWithFocus(target);
    postAndWaitUntilAsked(target);
    room.keyStrokes.reset();
    available.front()();
    room.connection->currentServerTime();
    target.synchronize();
    EXPECT_EQ(target.presses(), 0);
}

TEST_F(AvailabilityTests, withoutATargetAnotherChordAwaitsItsOwnSelection)
{
    OtherWindow editor;
    OtherWindow terminal("XTerm");
    showWithFocus(editor);
    post(std::nullopt);
    ASSERT_TRUE(waitUntil([&] { return available.size() == 1; }));
    terminal.show();
    ASSERT_TRUE(waitUntil([&] { return terminal.isMapped(); }));
    terminal.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return terminal.hasFocus(); }));
    available.front()();
    ASSERT_TRUE(waitUntil([&] { return available.size() == 2; }));
    EXPECT_EQ(steps, (std::vector<std::string>{"await", "offer PRIMARY", "await"}));
    available.back()();
    ASSERT_TRUE(waitForStrokes());
    editor.synchronize();
    terminal.synchronize();
    EXPECT_EQ(editor.presses(), 0);
    EXPECT_EQ(terminal.presses(Key::insert, Modifier::shift), 1);
    EXPECT_EQ(terminal.presses(), 1);
}

TEST_F(X11KeyStrokesManagedTests, theWayBackToTheRecordedWindowEndsInOneChord)
{
    OtherWindow target;
    OtherWindow sibling;
    showWithFocus(sibling);
    showWithFocus(target);
    ASSERT_TRUE(waitUntil([&] {
        const auto front = room.workspace->frontmostApplication();
        return front && front->processIdentifier() == target.process();
    }));
    const auto application = room.workspace->frontmostApplication();
    sibling.takeFocus();
    ASSERT_TRUE(waitUntil([&] { return sibling.hasFocus(); }));
    room.userTime->note(*room.connection->currentServerTime());
    ASSERT_TRUE(application->activate(ActivationOptions::ignoringOtherApps));
    paste(target, application->processIdentifier());
    EXPECT_EQ(target.presses(Key::v, Modifier::control), 1);
    sibling.synchronize();
    EXPECT_EQ(sibling.presses(), 0);
}

TEST_F(X11KeyStrokesManagedTests, manyPastesAmongWindowsWithModifiersHeldAllArriveOnce)
{
    std::vector<std::unique_ptr<OtherWindow>> windows;
    for (const char* name : {"Editor", "kitty", "XTerm", "Browser"}) {
        windows.push_back(std::make_unique<OtherWindow>(name));
        showWithFocus(*windows.back());
    }
    const std::vector<std::pair<Keycode, std::uint16_t>> chords = {
        {Key::v, Modifier::control},
        {Key::v, Modifier::control | Modifier::shift},
        {Key::insert, Modifier::shift},
        {Key::v, Modifier::control},
    };
    const std::vector<Keycode> modifiers = {Key::shiftLeft, Key::controlLeft, Key::altLeft, Key::superLeft};
    std::uint32_t random = 12345;
    const auto next = [&] { return random = random * 1664525 + 1013904223, random >> 16; };
    for (int round = 0; round < 60; ++round) {
        for (const Keycode modifier : modifiers)
            if (next() % 3 == 0)
                typist.press(modifier);
        const std::size_t chosen = next() % windows.size();
        OtherWindow& target = *windows[chosen];
        for (auto& window : windows)
            window->forget();
        target.takeFocus();
        paste(target, target.process());
        EXPECT_EQ(target.presses(chords[chosen].first, chords[chosen].second), 1) << "Round " << round;
        for (auto& window : windows) {
            window->synchronize();
            EXPECT_EQ(window->presses(), window.get() == &target ? 1 : 0) << "Round " << round;
        }
        for (const Keycode modifier : modifiers)
            typist.release(modifier);
        ASSERT_TRUE(waitUntil([&] { return typist.keysDown().none() && typist.keysDownOnXTest().none(); }));
    }
}

} // namespace
} // namespace tessel
