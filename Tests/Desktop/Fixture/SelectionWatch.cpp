#include "SelectionWatch.h"

#include <xcb/xfixes.h>

namespace tessel::desktop {

SelectionWatch::SelectionWatch(const std::string& displayName)
    : connection_(displayName)
    , ownerChangeEvent_(0)
{
    auto* connection = connection_.get();
    const auto* fixes = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (fixes == nullptr || fixes->present == 0)
        throw DesktopFailure("the X server has no XFixes extension");
    own(xcb_xfixes_query_version_reply(connection, xcb_xfixes_query_version(connection, 5, 0), nullptr));
    ownerChangeEvent_ = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(connection, connection_.root(), connection_.atom("CLIPBOARD"),
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    connection_.synchronize();
}

std::uint64_t SelectionWatch::count()
{
    connection_.synchronize();
    while (const auto event = own(xcb_poll_for_event(connection_.get())))
        note(*event);
    return count_;
}

void SelectionWatch::waitForMoreThan(std::uint64_t before, Deadline deadline)
{
    while (count_ <= before) {
        const auto event = connection_.nextEvent(deadline);
        if (!event)
            throw DesktopFailure("waited in vain for: a new owner of the clipboard");
        note(*event);
    }
}

void SelectionWatch::note(const xcb_generic_event_t& event)
{
    constexpr std::uint8_t eventTypeMask = 0x7f;
    if ((event.response_type & eventTypeMask) == ownerChangeEvent_)
        ++count_;
}

} // namespace tessel::desktop
