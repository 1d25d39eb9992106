#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <QtCore/QTimer>

#include "Token.h"
#include "X11/ChordPlayer.h"
#include "X11/HeldReturn.h"
#include "X11/KeyboardDevices.h"
#include "X11/PastePatience.h"
#include "X11/WindowAncestry.h"
#include "X11/X11Connection.h"

namespace tessel {

/// One paste under way: waits until the target has the focus, then plays its chord there, exactly once; or
/// gives up.
class PasteStroke {
public:
    struct Rooms {
        std::shared_ptr<X11Connection> connection;
        std::shared_ptr<X11Keyboard> keyboard;
        std::shared_ptr<ChordPlayer> player;
        std::shared_ptr<HeldReturn> heldReturn;
        /// Begins to offer the text that is being pasted as PRIMARY. Runs before a chord that pastes PRIMARY.
        /// False: there is no text, and the chord would paste what somebody has selected. May be absent.
        std::function<bool()> offerPrimary;
        /// Runs its argument, on a later turn of the loop, once others get what is being pasted, from
        /// whichever selection. Absent: they do already.
        std::function<void(std::function<void()>)> whenAvailable;
        PastePatience patience;
    };

    /// Without a `target`, whoever has the focus gets the chord.
    PasteStroke(Rooms rooms, std::optional<xcb_window_t> target);

    /// Runs `didEnd` when the chord has been played, or never will be; never before this call has returned.
    void begin(std::function<void()> didEnd);

private:
    void waitForReturn();
    void returnIsUp();
    void findClassOfTarget();
    void checkFocus();
    void lookForTheLastTime();
    void focusFound(xcb_window_t focus);
    void ancestryFound(xcb_window_t focus, const WindowAncestry& ancestry);
    void findClassOf(WindowAncestry ancestry, xcb_window_t focus);
    void decideOn(PasteChord chord);
    void focusIsRight(xcb_window_t focus);
    void play();
    void awaitAvailability();
    void follow(const xcb_generic_event_t& event);
    void end();

    Rooms rooms_;
    std::optional<xcb_window_t> target_;
    std::function<void()> didEnd_;
    QTimer patience_;
    std::optional<std::vector<KeyboardDevice>> devices_;
    std::optional<PasteChord> chord_;
    std::optional<xcb_window_t> rightFocus_;
    bool returnIsUp_ = false;
    bool checking_ = false;
    bool checkAgain_ = false;
    bool isLastLook_ = false;
    bool isAwaitingAvailability_ = false;
    bool isAvailable_ = false;
    Token selection_;
    Token events_;
    std::shared_ptr<void> lifetime_ = std::make_shared<char>();
};

} // namespace tessel
