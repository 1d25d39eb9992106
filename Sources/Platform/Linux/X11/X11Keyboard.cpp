#include "X11/X11Keyboard.h"

#include <cstring>
#include <utility>

#include "X11/KeymapReplies.h"

namespace tessel {

struct X11Keyboard::Requests {
    xcb_xkb_get_map_cookie_t map;
    xcb_xkb_get_names_cookie_t names;
    xcb_get_modifier_mapping_cookie_t modifiers;
};

namespace {

constexpr xcb_xkb_device_spec_t coreKeyboard = XCB_XKB_ID_USE_CORE_KBD;

/// What the first answers bring is kept until the last one is there.
struct PartialKeymap {
    X11Reply<xcb_xkb_get_map_reply_t> map;
    X11Reply<xcb_xkb_get_names_reply_t> names;
};

/// A reply is only lent to its handler.
template <class Reply>
X11Reply<Reply> copyOf(const Reply* reply)
{
    if (reply == nullptr)
        return nullptr;
    constexpr std::size_t fixedSize =
        32; // Every reply has this much before the length counts (X protocol, chapter 1).
    constexpr std::size_t unit = 4;
    const std::size_t size = fixedSize + reply->length * unit;
    void* block = std::malloc(size);
    return X11Reply<Reply>(static_cast<Reply*>(std::memcpy(block, reply, size)));
}

} // namespace

X11Keyboard::X11Keyboard(std::shared_ptr<X11Connection> connection)
    : connection_(std::move(connection))
{
    if (!connection_->isAlive() || !connection_->extensions().xkb)
        return;
    selectEvents();
    events_ = connection_->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
    const Requests requests = request();
    const auto map = connection_->wait(xcb_xkb_get_map_reply, requests.map);
    const auto names = connection_->wait(xcb_xkb_get_names_reply, requests.names);
    const auto modifiers = connection_->wait(xcb_get_modifier_mapping_reply, requests.modifiers);
    keymap_ = keymapFromReplies(map.get(), names.get(), modifiers.get());
}

void X11Keyboard::selectEvents()
{
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t mapParts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    xcb_xkb_select_events(connection_->raw(), coreKeyboard, events, 0, events, mapParts, mapParts, nullptr);
}

X11Keyboard::Requests X11Keyboard::request()
{
    auto* raw = connection_->raw();
    return {xcb_xkb_get_map(raw, coreKeyboard, XCB_XKB_MAP_PART_KEY_SYMS, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                            0, 0, 0, 0),
            xcb_xkb_get_names(raw, coreKeyboard, XCB_XKB_NAME_DETAIL_KEY_NAMES),
            xcb_get_modifier_mapping(raw)};
}

void X11Keyboard::follow(const xcb_generic_event_t& event)
{
    const std::uint8_t kind = eventKind(event);
    if (kind == XCB_MAPPING_NOTIFY) {
        if (eventAs<xcb_mapping_notify_event_t>(event).request != XCB_MAPPING_POINTER)
            refresh();
        return;
    }
    if (kind != connection_->extensions().xkbFirstEvent)
        return;
    const std::uint8_t xkbKind = event.pad0;
    if (xkbKind == XCB_XKB_MAP_NOTIFY || xkbKind == XCB_XKB_NEW_KEYBOARD_NOTIFY)
        refresh();
}

void X11Keyboard::refresh()
{
    if (std::exchange(refreshing_, true)) {
        changedMeanwhile_ = true;
        return;
    }
    const Requests requests = request();
    const auto partial = std::make_shared<PartialKeymap>();
    connection_->whenReplied<xcb_xkb_get_map_reply_t>(
        requests.map, lifetime_, [partial](const auto* reply) { partial->map = copyOf(reply); });
    connection_->whenReplied<xcb_xkb_get_names_reply_t>(
        requests.names, lifetime_, [partial](const auto* reply) { partial->names = copyOf(reply); });
    connection_->whenReplied<xcb_get_modifier_mapping_reply_t>(
        requests.modifiers, lifetime_, [this, partial](const auto* modifiers) {
            refreshing_ = false;
            if (partial->map && modifiers != nullptr)
                adopt(keymapFromReplies(partial->map.get(), partial->names.get(), modifiers));
            if (std::exchange(changedMeanwhile_, false))
                refresh();
        });
    connection_->flush();
}

void X11Keyboard::adopt(Keymap keymap)
{
    if (keymap == keymap_)
        return; // A synthetic key makes the server announce a new keyboard that has the same keys.
    keymap_ = std::move(keymap);
    observers_.tell();
}

Token X11Keyboard::observeChanges(std::function<void()> didChange)
{
    return observers_.add(std::move(didChange));
}

} // namespace tessel
