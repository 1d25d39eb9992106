#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "X11/KeyboardDevices.h"
#include "X11/PasteChord.h"
#include "X11/PutBackKeys.h"
#include "X11/X11Connection.h"
#include "X11/X11HotKeyCenter.h"
#include "X11/X11Keyboard.h"

namespace tessel {

/// Plays a chord on the core keyboard, whatever the user is holding down.
class ChordPlayer {
public:
    enum class Outcome {
        played,
        focusMoved, ///< Nothing was played: another window has the focus than was expected.
        impossible, ///< Nothing was played: no connection, no XTEST, a keyboard without these keys, or
                    ///< another program has grabbed the keyboard and would get them.
    };

    ChordPlayer(std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Keyboard> keyboard,
                std::shared_ptr<X11HotKeyCenter> hotKeys);

    /// Plays the chord once, provided that `focus` has the focus at that moment: a few round trips, during
    /// which the server serves nobody else, so that the focus cannot move in between. `devices` are the
    /// keyboards of the user.
    Outcome play(PasteChord chord, xcb_window_t focus, const std::vector<KeyboardDevice>& devices);

private:
    struct Moment;

    Moment takeMoment(const std::vector<KeyboardDevice>& devices);
    Outcome playAt(const Moment& moment, PasteChord chord, const std::vector<KeyboardDevice>& devices);
    bool keysReachTheFocus();
    void type(const ChordKeys& keys);
    void lift(const KeySet& keys);
    void putBack(const KeySet& keys);
    void tapKeyWithoutMeaning();
    void clearStickyModifiers(const Moment& moment);
    void restoreStickyModifiers(const Moment& moment);

    std::shared_ptr<X11Connection> connection_;
    std::shared_ptr<X11Keyboard> keyboard_;
    std::shared_ptr<X11HotKeyCenter> hotKeys_;
    PutBackKeys putBackKeys_;
};

} // namespace tessel
