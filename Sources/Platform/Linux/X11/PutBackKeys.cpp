#include "X11/PutBackKeys.h"

#include <utility>

#include "X11/SyntheticKeys.h"
#include "X11/XkbProtocol.h"

namespace tessel {

PutBackKeys::PutBackKeys(std::shared_ptr<X11Connection> connection)
    : connection_(std::move(connection))
{}

PutBackKeys::~PutBackKeys()
{
    if (!connection_->isAlive() || keys_.none())
        return;
    releaseKeys(*connection_, keys_);
    connection_->flush();
}

void PutBackKeys::watch(const KeySet& keys, std::vector<KeyboardDevice> devices)
{
    const bool wasWatching = isWatching();
    keys_ = keys;
    devices_ = std::move(devices);
    if (isWatching() != wasWatching)
        select(isWatching() ? StateEvents::wanted : StateEvents::unwanted);
    // The user may have let go while the key was up anyway, which nobody announces.
    if (isWatching())
        check();
}

void PutBackKeys::select(StateEvents events)
{
    // A key of the user that comes up changes the modifiers that are held. Nothing else is asked for, and
    // nothing at all while no key is watched: otherwise the program would wake up whenever somebody types a
    // capital letter.
    constexpr std::uint16_t affected = XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t heldModifiers = XCB_XKB_STATE_PART_MODIFIER_BASE;
    xcb_xkb_select_events_details_t details{};
    details.affectState = heldModifiers;
    details.stateDetails = events == StateEvents::wanted ? heldModifiers : 0;
    xcb_xkb_select_events_aux(connection_->raw(), XCB_XKB_ID_USE_CORE_KBD, affected, 0, 0, 0, 0, &details);
    if (events == StateEvents::unwanted)
        events_.reset();
    else
        events_ = connection_->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
    connection_->flush();
}

void PutBackKeys::follow(const xcb_generic_event_t& event)
{
    const bool isXkb = eventKind(event) == connection_->extensions().xkbFirstEvent;
    if (isXkb && event.pad0 == XCB_XKB_STATE_NOTIFY)
        check();
}

void PutBackKeys::check()
{
    if (std::exchange(checking_, true)) {
        changedMeanwhile_ = true;
        return;
    }
    findDeviceKeys(*connection_, devices_, lifetime_, [this](const std::vector<DeviceKeys>& devices) {
        checking_ = false;
        const KeySet lift = keysToLiftAgain(keys_, devices);
        releaseKeys(*connection_, lift);
        keys_ &= ~lift;
        connection_->flush();
        if (!isWatching())
            return select(StateEvents::unwanted);
        if (std::exchange(changedMeanwhile_, false))
            check();
    });
}

} // namespace tessel
