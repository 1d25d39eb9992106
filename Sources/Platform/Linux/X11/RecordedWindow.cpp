#include "X11/RecordedWindow.h"

#include <utility>

#include "X11/FocusRequest.h"
#include "X11/PropertyValue.h"

namespace tessel {

RecordedWindow::RecordedWindow(Rooms rooms, xcb_window_t window, xcb_window_t focus)
    : rooms_(std::move(rooms))
    , window_(window)
    , focus_(focus)
{
    X11Connection& connection = *rooms_.connection;
    events_ = connection.observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
    selection_ = connection.selectEvents(window_, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    const auto cookie = xcb_get_property(connection.raw(), 0, window_, connection.atoms().netWindowProcess,
                                         XCB_ATOM_ANY, 0, 1);
    connection.whenReplied<xcb_get_property_reply_t>(cookie, lifetime_, [this](const auto* reply) {
        if (reply == nullptr)
            isClosed_ = true; // It had gone before its end could be announced.
        else if (const std::uint32_t process = firstUnitOf(reply); process != 0)
            systemProcess_ = process;
    });
    connection.flush();
}

bool RecordedWindow::activate(ActivationOptions)
{
    X11Connection& connection = *rooms_.connection;
    if (isClosed_ || !connection.isAlive())
        return false;
    if (rooms_.willActivate)
        rooms_.willActivate();
    const xcb_timestamp_t time = rooms_.userTime->last();
    if (rooms_.windowManager->maintainsActiveWindow()) {
        const auto ours = rooms_.toolkitWindows->focusedWindow().value_or(noWindow);
        requestActivation(connection.raw(), connection.root(), connection.atoms(), window_, time, ours);
    } else {
        raiseAndFocus(connection.raw(), window_, time);
        // The same window inside it as before, should it still be there.
        if (focus_ != window_)
            xcb_set_input_focus(connection.raw(), XCB_INPUT_FOCUS_PARENT, focus_, time);
    }
    connection.flush();
    return true;
}

ProcessIdentifier RecordedWindow::processIdentifier() const
{
    // The number of a closed window may be another's by now.
    return ProcessIdentifier{isClosed_ ? noWindow : window_};
}

void RecordedWindow::follow(const xcb_generic_event_t& event)
{
    if (eventKind(event) == XCB_DESTROY_NOTIFY &&
        eventAs<xcb_destroy_notify_event_t>(event).window == window_)
        isClosed_ = true;
}

} // namespace tessel
