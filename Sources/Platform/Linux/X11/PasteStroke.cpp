#include "X11/PasteStroke.h"

#include <algorithm>
#include <utility>

#include "X11/FocusEvents.h"
#include "X11/PropertyValue.h"

namespace tessel {

namespace {

/// WM_CLASS is a pair of short names; whatever is longer is no terminal that we know.
constexpr std::uint32_t windowClassUnits = 256;

xcb_get_property_cookie_t requestWindowClass(X11Connection& connection, xcb_window_t window)
{
    return xcb_get_property(connection.raw(), 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0,
                            windowClassUnits);
}

} // namespace

PasteStroke::PasteStroke(Rooms rooms, std::optional<xcb_window_t> target)
    : rooms_(std::move(rooms))
    , target_(target)
{
    patience_.setSingleShot(true);
    patience_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { lookForTheLastTime(); });
}

void PasteStroke::begin(std::function<void()> didEnd)
{
    didEnd_ = std::move(didEnd);
    if (target_) {
        events_ =
            rooms_.connection->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
        selection_ = rooms_.connection->selectEvents(*target_, XCB_EVENT_MASK_FOCUS_CHANGE |
                                                                   XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        findClassOfTarget();
    }
    findKeyboards(*rooms_.connection, lifetime_, [this](const std::vector<KeyboardDevice>& devices) {
        devices_ = devices;
        play();
    });
    waitForReturn();
}

void PasteStroke::waitForReturn()
{
    returnIsUp_ = false;
    patience_.stop();
    rooms_.heldReturn->waitForRelease([this, lifetime = std::weak_ptr(lifetime_)] {
        if (!lifetime.expired())
            returnIsUp();
    });
}

void PasteStroke::findClassOfTarget()
{
    rooms_.connection->whenReplied<xcb_get_property_reply_t>(
        requestWindowClass(*rooms_.connection, *target_), lifetime_, [this](const auto* reply) {
            if (reply == nullptr)
                return end(); // The target has been closed.
            decideOn(pasteChordFor(windowClassFromProperty(bytesOf(reply))));
            play();
        });
}

void PasteStroke::returnIsUp()
{
    returnIsUp_ = true;
    if (target_)
        patience_.start(rooms_.patience.focus);
    checkFocus();
}

void PasteStroke::checkFocus()
{
    if (std::exchange(checking_, true)) {
        checkAgain_ = true;
        return;
    }
    rightFocus_.reset();
    rooms_.connection->whenReplied<xcb_get_input_focus_reply_t>(xcb_get_input_focus(rooms_.connection->raw()),
                                                                lifetime_, [this](const auto* reply) {
                                                                    if (reply == nullptr)
                                                                        return end();
                                                                    focusFound(reply->focus);
                                                                });
    rooms_.connection->flush();
}

/// A focus that was given in time counts, also where this program or the server is too busy to notice it in
/// time.
void PasteStroke::lookForTheLastTime()
{
    isLastLook_ = true;
    checkFocus();
}

void PasteStroke::focusFound(xcb_window_t focus)
{
    findAncestry(*rooms_.connection, focus, lifetime_,
                 [this, focus](const WindowAncestry& ancestry) { ancestryFound(focus, ancestry); });
}

void PasteStroke::ancestryFound(xcb_window_t focus, const WindowAncestry& ancestry)
{
    checking_ = false;
    if (std::exchange(checkAgain_, false))
        return checkFocus();
    if (!target_)
        return findClassOf(ancestry, focus);
    if (std::find(ancestry.begin(), ancestry.end(), *target_) != ancestry.end())
        focusIsRight(focus);
    else if (isLastLook_)
        end();
}

void PasteStroke::findClassOf(WindowAncestry ancestry, xcb_window_t focus)
{
    if (ancestry.empty()) {
        decideOn(PasteChord::controlV);
        return focusIsRight(focus);
    }
    const xcb_window_t window = ancestry.front();
    ancestry.erase(ancestry.begin());
    rooms_.connection->whenReplied<xcb_get_property_reply_t>(
        requestWindowClass(*rooms_.connection, window), lifetime_,
        [this, focus, ancestry = std::move(ancestry)](const auto* reply) mutable {
            const auto bytes = bytesOf(reply);
            if (bytes.empty())
                return findClassOf(std::move(ancestry), focus);
            decideOn(pasteChordFor(windowClassFromProperty(bytes)));
            focusIsRight(focus);
        });
    rooms_.connection->flush();
}

void PasteStroke::decideOn(PasteChord chord)
{
    // Another chord may take its value from another selection.
    if (chord_ != chord)
        isAvailable_ = isAwaitingAvailability_ = false;
    chord_ = chord;
}

void PasteStroke::focusIsRight(xcb_window_t focus)
{
    rightFocus_ = focus;
    play();
}

void PasteStroke::play()
{
    if (!didEnd_ || !returnIsUp_ || !devices_ || !chord_ || !rightFocus_)
        return;
    if (rooms_.heldReturn->isHolding())
        return waitForReturn(); // The Return of the next paste.
    if (!isAvailable_)
        return awaitAvailability();
    switch (rooms_.player->play(*chord_, *rightFocus_, *devices_)) {
    case ChordPlayer::Outcome::focusMoved:
        return checkFocus();
    case ChordPlayer::Outcome::played:
    case ChordPlayer::Outcome::impossible:
        return end();
    }
}

/// Who gets the chord asks for the selection at once, and must not be given what was there before.
void PasteStroke::awaitAvailability()
{
    if (std::exchange(isAwaitingAvailability_, true))
        return;
    if (*chord_ == PasteChord::shiftInsert && rooms_.offerPrimary && !rooms_.offerPrimary())
        return end();
    const auto goOn = [this, chord = *chord_, lifetime = std::weak_ptr(lifetime_)] {
        if (lifetime.expired() || chord_ != chord)
            return;
        isAvailable_ = true;
        if (target_)
            patience_.start(rooms_.patience.focus);
        play();
    };
    patience_.stop(); // It is for the focus.
    isLastLook_ = false;
    if (!rooms_.whenAvailable)
        return goOn();
    rooms_.whenAvailable(goOn);
}

void PasteStroke::follow(const xcb_generic_event_t& event)
{
    switch (eventKind(event)) {
    case XCB_FOCUS_IN: {
        const auto& focus = eventAs<xcb_focus_in_event_t>(event);
        if (returnIsUp_ && focus.event == *target_ && meaningOfFocusEvent(focus) == FocusMeaning::gained)
            checkFocus();
        return;
    }
    case XCB_DESTROY_NOTIFY:
        if (eventAs<xcb_destroy_notify_event_t>(event).window == *target_)
            end();
        return;
    default:
        return;
    }
}

void PasteStroke::end()
{
    patience_.stop();
    selection_.reset();
    events_.reset();
    if (const auto didEnd = std::exchange(didEnd_, nullptr))
        didEnd();
}

} // namespace tessel
