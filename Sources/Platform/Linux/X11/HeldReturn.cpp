#include "X11/HeldReturn.h"

#include <utility>

#include "X11/KeyboardDevices.h"
#include "X11/SyntheticKeys.h"

namespace tessel {

HeldReturn::HeldReturn(std::shared_ptr<X11Connection> connection, std::shared_ptr<X11Keyboard> keyboard,
                       std::chrono::milliseconds longestHold)
    : connection_(std::move(connection))
    , keyboard_(std::move(keyboard))
    , longestHold_(longestHold)
{
    patience_.setSingleShot(true);
    patience_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { lift(); });
}

HeldReturn::~HeldReturn()
{
    if (isGrabRequested_ && connection_->isAlive()) {
        xcb_ungrab_keyboard(connection_->raw(), XCB_CURRENT_TIME);
        connection_->flush();
    }
}

void HeldReturn::holdAtOnce()
{
    if (round_ || !connection_->isAlive())
        return;
    round_ = std::make_shared<char>();
    grab();
    askForKeys();
}

void HeldReturn::waitForRelease(std::function<void()> didEnd)
{
    didEnd_ = std::move(didEnd);
    if (round_)
        return;
    round_ = std::make_shared<char>();
    askForKeys(); // Mostly nothing is down, and a grab is an event for the focused window.
}

void HeldReturn::askForKeys()
{
    connection_->whenReplied<xcb_query_keymap_reply_t>(
        xcb_query_keymap(connection_->raw()), round_,
        [this](const auto* reply) { keysAreDown(keysOf(reply)); });
    connection_->flush();
}

void HeldReturn::keysAreDown(const KeySet& down)
{
    const Keymap& keymap = keyboard_->keymap();
    down_ = down & (keysFor(keymap, KeysymName::returnKey) | keysFor(keymap, KeysymName::keypadEnter));
    if (down_->none())
        return end();
    if (isGrabRefused_)
        return lift();
    if (isGrabRequested_)
        return;
    grab();
    askForKeys(); // It may have come up before the grab, and then its release went to somebody else.
}

void HeldReturn::grab()
{
    constexpr std::uint8_t eventsGoToOwner = 0;
    isGrabRequested_ = true;
    events_ = connection_->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
    patience_.start(longestHold_);
    const auto cookie = xcb_grab_keyboard(connection_->raw(), eventsGoToOwner, connection_->root(),
                                          XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    connection_->whenReplied<xcb_grab_keyboard_reply_t>(cookie, round_, [this](const auto* reply) {
        isGrabRefused_ = reply == nullptr || reply->status != XCB_GRAB_STATUS_SUCCESS;
    });
}

void HeldReturn::lift()
{
    if (connection_->isAlive() && connection_->extensions().test && down_)
        releaseKeys(*connection_, *down_);
    end();
}

void HeldReturn::follow(const xcb_generic_event_t& event)
{
    if (eventKind(event) != XCB_KEY_RELEASE || !down_)
        return;
    down_->reset(eventAs<xcb_key_release_event_t>(event).detail);
    if (down_->none())
        end();
}

void HeldReturn::end()
{
    patience_.stop();
    events_.reset();
    round_.reset();
    down_.reset();
    isGrabRefused_ = false;
    if (std::exchange(isGrabRequested_, false) && connection_->isAlive())
        xcb_ungrab_keyboard(connection_->raw(), XCB_CURRENT_TIME);
    connection_->flush();
    if (const auto didEnd = std::exchange(didEnd_, nullptr))
        didEnd();
}

} // namespace tessel
