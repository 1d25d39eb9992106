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
    if (isGrabbed_ && connection_->isAlive()) {
        xcb_ungrab_keyboard(connection_->raw(), XCB_CURRENT_TIME);
        connection_->flush();
    }
}

void HeldReturn::waitForRelease(std::function<void()> didEnd)
{
    didEnd_ = std::move(didEnd);
    connection_->whenReplied<xcb_query_keymap_reply_t>(
        xcb_query_keymap(connection_->raw()), lifetime_,
        [this](const auto* reply) { keysAreDown(keysOf(reply)); });
    connection_->flush();
}

void HeldReturn::holdAtOnce()
{
    const auto reply = connection_->wait(xcb_query_keymap_reply, xcb_query_keymap(connection_->raw()));
    keysAreDown(keysOf(reply.get()));
}

void HeldReturn::keysAreDown(const KeySet& down)
{
    const Keymap& keymap = keyboard_->keymap();
    down_ = down & (keysFor(keymap, KeysymName::returnKey) | keysFor(keymap, KeysymName::keypadEnter));
    if (down_.none())
        return end();
    if (!isGrabbed_)
        grab();
}

void HeldReturn::grab()
{
    constexpr std::uint8_t eventsGoToOwner = 0;
    events_ = connection_->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
    patience_.start(longestHold_);
    const auto cookie = xcb_grab_keyboard(connection_->raw(), eventsGoToOwner, connection_->root(),
                                          XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    connection_->whenReplied<xcb_grab_keyboard_reply_t>(cookie, lifetime_, [this](const auto* reply) {
        grabbed(reply != nullptr && reply->status == XCB_GRAB_STATUS_SUCCESS);
    });
    connection_->flush();
}

void HeldReturn::grabbed(bool isGranted)
{
    isGrabbed_ = isGranted;
    if (!isGranted)
        return lift();
    // It may have come up before the grab, and then its release went to somebody else.
    connection_->whenReplied<xcb_query_keymap_reply_t>(
        xcb_query_keymap(connection_->raw()), lifetime_,
        [this](const auto* reply) { keysAreDown(keysOf(reply)); });
    connection_->flush();
}

void HeldReturn::lift()
{
    if (connection_->isAlive())
        releaseKeys(*connection_, down_);
    end();
}

void HeldReturn::follow(const xcb_generic_event_t& event)
{
    if (eventKind(event) != XCB_KEY_RELEASE || !isGrabbed_)
        return;
    down_[eventAs<xcb_key_release_event_t>(event).detail] = false;
    if (down_.none())
        end();
}

void HeldReturn::end()
{
    patience_.stop();
    events_.reset();
    if (std::exchange(isGrabbed_, false))
        xcb_ungrab_keyboard(connection_->raw(), XCB_CURRENT_TIME);
    connection_->flush();
    if (const auto didEnd = std::exchange(didEnd_, nullptr))
        didEnd();
}

} // namespace tessel
