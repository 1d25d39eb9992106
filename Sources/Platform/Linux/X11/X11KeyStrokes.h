#pragma once

#include <deque>
#include <functional>
#include <memory>

#include <QtCore/QObject>

#include "KeyStrokes.h"
#include "X11/ChordPlayer.h"
#include "X11/PasteStroke.h"

namespace tessel {

/// Synthetic keys through XTEST. The one stroke that the program posts, Command with virtual key code 9, is
/// "paste": it becomes the chord that the receiving window takes for that. Any other stroke is nothing that
/// this keyboard could say, and is not posted.
///
/// A target has to get the focus first, because XTEST types where the focus is. Strokes are played in the
/// order of the calls, each within its patience, or not at all.
class X11KeyStrokes : public KeyStrokes {
public:
    /// `offerPrimary`, `whenAvailable` and `patience` as in `PasteStroke::Rooms`.
    X11KeyStrokes(std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Keyboard> keyboard,
                  std::shared_ptr<X11HotKeyCenter> hotKeys, std::function<bool()> offerPrimary,
                  std::function<void(std::function<void()>)> whenAvailable = {}, PastePatience patience = {});

    void postKeyStroke(std::uint16_t keyCode, ModifierFlags flags,
                       std::optional<ProcessIdentifier> process) override;

    /// A stroke is to follow, and its target gets the focus before: a Return that is held down must not
    /// repeat into it meanwhile.
    void targetWillGetFocus();

    /// True while strokes are waiting for the focus.
    bool isBusy() const { return current_ != nullptr; }

private:
    void beginNext();
    void currentDidEnd();

    PasteStroke::Rooms rooms_;
    std::deque<std::optional<xcb_window_t>> waiting_;
    std::unique_ptr<PasteStroke> current_;
    /// Receives the calls that are queued for a later turn of the loop; they go with it.
    QObject context_;
};

} // namespace tessel
