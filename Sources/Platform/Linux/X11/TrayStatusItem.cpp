#include "X11/TrayStatusItem.h"

#include <utility>

#include "X11/PropertyValue.h"
#include "X11/TrayScheme.h"
#include "X11/X11Screens.h"

namespace tessel {

TrayStatusItem::TrayStatusItem(std::shared_ptr<X11Connection> connection, std::shared_ptr<UserTime> userTime)
    : connection_(std::move(connection))
    , userTime_(std::move(userTime))
{}

TrayStatusItem::~TrayStatusItem() = default;

void TrayStatusItem::show(StatusItemDescription description)
{
    description_ = std::move(description);
    // The icon is drawn with RENDER.
    if (!connection_->isAlive() || !connection_->extensions().render || !hasOurByteOrder(connection_->raw()))
        return;
    events_ = connection_->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
    lookForTray();
}

bool TrayStatusItem::isShown() const
{
    return icon_ && icon_->isEmbedded();
}

Token TrayStatusItem::observe(std::function<void()> didChange)
{
    return observers_.add(std::move(didChange));
}

void TrayStatusItem::follow(const xcb_generic_event_t& event)
{
    if (eventKind(event) == XCB_DESTROY_NOTIFY) {
        if (tray_ == noWindow || eventAs<xcb_destroy_notify_event_t>(event).window != tray_)
            return;
        leaveTray();
        return lookForTray();
    }
    if (eventKind(event) != XCB_CLIENT_MESSAGE)
        return;
    // A new manager of a selection tells its time, the selection and its window (ICCCM section 2.8).
    const auto& message = eventAs<xcb_client_message_event_t>(event);
    const X11Atoms& atoms = connection_->atoms();
    if (message.type == atoms.manager && message.data.data32[1] == atoms.tray)
        lookForTray();
}

void TrayStatusItem::lookForTray()
{
    connection_->whenReplied<xcb_get_selection_owner_reply_t>(
        xcb_get_selection_owner(connection_->raw(), connection_->atoms().tray), lifetime_,
        [this](const auto* reply) {
            if (reply != nullptr && reply->owner != noWindow && reply->owner != tray_)
                consider(reply->owner);
        });
    connection_->flush();
}

void TrayStatusItem::consider(xcb_window_t window)
{
    leaveTray();
    tray_ = window;
    // A tray that goes before this is known by the errors of the questions below.
    traySelection_ = connection_->selectEvents(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    const auto ask = [this, window](xcb_atom_t property, std::uint32_t units,
                                    std::function<void(const xcb_get_property_reply_t*)> handler) {
        connection_->whenReplied<xcb_get_property_reply_t>(
            xcb_get_property(connection_->raw(), 0, window, property, XCB_ATOM_ANY, 0, units), lifetime_,
            [this, window, handler = std::move(handler)](const auto* reply) {
                if (tray_ == window)
                    handler(reply);
            });
    };
    constexpr std::uint32_t colorUnits = 12;
    auto tray = std::make_shared<Tray>();
    tray->window = window;
    ask(connection_->atoms().trayVisual, 1, [tray](const auto* reply) { tray->visual = firstUnitOf(reply); });
    ask(connection_->atoms().trayColors, colorUnits, [this, tray](const auto* reply) {
        if (reply == nullptr)
            return leaveTray();
        tray->scheme = schemeOfTrayColors(unitsOf(reply));
    });
    connection_->whenReplied<xcb_render_query_pict_formats_reply_t>(
        xcb_render_query_pict_formats(connection_->raw()), lifetime_, [this, tray](const auto* reply) {
            if (reply != nullptr && tray_ == tray->window)
                dock(*tray, *reply);
        });
    connection_->flush();
}

void TrayStatusItem::dock(const Tray& tray, const xcb_render_query_pict_formats_reply_t& formats)
{
    icon_ = std::make_unique<TrayIcon>(
        connection_, tray, formats, description_, userTime_->last(),
        TrayIcon::Handlers{
            .embeddingDidChange = [this] { observers_.tell(); },
            .clicked = [this](const xcb_button_press_event_t& press) { openMenu(press); },
        });
}

void TrayStatusItem::leaveTray()
{
    const bool wasShown = isShown();
    icon_.reset();
    traySelection_.reset();
    tray_ = noWindow;
    if (wasShown)
        observers_.tell();
}

void TrayStatusItem::openMenu(const xcb_button_press_event_t& press)
{
    userTime_->note(press.time);
    // The press has given us the pointer, and the menu takes it on the toolkit's connection, which it can
    // do once the server has it back: when whatever was asked after it is answered.
    xcb_ungrab_pointer(connection_->raw(), press.time);
    connection_->whenReplied<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus(connection_->raw()), lifetime_,
        [this, place = X11Screens::pointOfPixel(press.root_x, press.root_y)](const auto* reply) {
            if (reply != nullptr && description_.openMenu)
                description_.openMenu(place);
        });
    connection_->flush();
}

} // namespace tessel
