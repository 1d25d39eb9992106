#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Pasteboard.h"
#include "X11/Selections/HandoverPatience.h"

namespace tessel {

class SelectionsWorker;

/// What the pasteboard needs of its surroundings.
struct SelectionsEnvironment {
    /// Runs work on the main thread, on a later turn of its loop. Callable from any thread.
    std::function<void(std::function<void()>)> postToMain;
    /// The content identity to prepare an image with. Runs on the worker thread.
    std::function<std::string(const PlatformImage&)> fingerprintImage;
    /// The X display; empty: that of the environment.
    std::string displayName = {};
    /// How long the end of the program may wait for a clipboard manager.
    HandoverPatience handoverPatience = {};
};

/// The general pasteboard on X11: the CLIPBOARD selection (ICCCM section 2).
///
/// There is no pasteboard server on X11; applications ask each other. A worker thread does that server's
/// part, so that here everything is at hand: the counter moves once for each new owner, when its value is
/// here or has failed, and never for what was on the clipboard before. Where there is no X display, and when
/// it is lost, the pasteboard only holds what is written to it. Belongs to the main thread.
class X11Pasteboard final : public Pasteboard {
public:
    /// What is copied after this returns is noticed. Waits for a few answers of the X server, once.
    explicit X11Pasteboard(SelectionsEnvironment environment);
    ~X11Pasteboard() override;
    X11Pasteboard(const X11Pasteboard&) = delete;
    X11Pasteboard& operator=(const X11Pasteboard&) = delete;

    std::int64_t changeCount() const override;
    SharedText string() const override;
    SharedImage image() const override;
    void clearContents() override;
    void setString(SharedText text) override;
    void writeObjects(SharedImage image) override;

    /// Puts the current string into the PRIMARY selection as well, until the next write: for applications
    /// that paste from nowhere else. False: there is no string.
    bool offerPrimary();

    /// Runs `done` on the main thread, on a later turn of its loop, once the server has decided on what was
    /// written and offered last: others are given that from now on, unless somebody copied something newer.
    /// Never runs if the display is lost before.
    void whenAvailable(std::function<void()> done);

    /// For the end of the program. Hands what is ours on the clipboard on to the desktop's clipboard manager
    /// (freedesktop.org clipboard manager), whole or not at all, and then runs `done` on the main thread, on
    /// a later turn of its loop. Where nobody takes it, and where the value is another's, that is the next
    /// thing to happen; a manager that is slow or silent is waited for as long as `handoverPatience` says.
    void handOn(std::function<void()> done);

private:
    struct State;

    std::shared_ptr<State> state_;
};

} // namespace tessel
