#include "LoneKeyWatch.h"

#include <xcb/xinput.h>

#include <utility>

namespace tessel::desktop {

LoneKeyWatch::LoneKeyWatch(const std::string& displayName, xcb_keycode_t key)
    : connection_(displayName)
    , key_(key)
{
    auto* connection = connection_.get();
    own(xcb_input_xi_query_version_reply(connection, xcb_input_xi_query_version(connection, 2, 2), nullptr));
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t bits;
    } const mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                 XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE};
    xcb_input_xi_select_events(connection, connection_.root(), 1, &mask.head);
    connection_.synchronize();
}

int LoneKeyWatch::count()
{
    read();
    return count_;
}

int LoneKeyWatch::pressCount()
{
    read();
    return pressCount_;
}

void LoneKeyWatch::read()
{
    connection_.synchronize();
    while (const auto event = own(xcb_poll_for_event(connection_.get())))
        note(*event);
}

void LoneKeyWatch::note(const xcb_generic_event_t& event)
{
    constexpr std::uint8_t eventTypeMask = 0x7f;
    if ((event.response_type & eventTypeMask) != XCB_GE_GENERIC)
        return;
    const auto& raw = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
    const bool isOurs = raw.detail == key_;
    if (raw.event_type == XCB_INPUT_RAW_KEY_PRESS) {
        isAlone_ = isOurs;
        pressCount_ += isOurs ? 1 : 0;
    } else if (raw.event_type == XCB_INPUT_RAW_KEY_RELEASE && isOurs && std::exchange(isAlone_, false)) {
        ++count_;
    }
}

} // namespace tessel::desktop
