#include "SystemTray.h"

#include <array>
#include <cstring>

namespace tessel::desktop {

namespace {

constexpr int panelWidth = 300; // Pixels.
constexpr int panelPadding = 4;

std::uint32_t pixelOf(const Colour& colour)
{
    return static_cast<std::uint32_t>(colour[0] << 16 | colour[1] << 8 | colour[2]);
}

} // namespace

SystemTray::SystemTray(const std::string& displayName, const Look& look)
    : connection_(displayName)
    , observer_(displayName)
    , look_(look)
    , panel_(xcb_generate_id(connection_.get()))
{
    createPanel();
    takeOver();
}

void SystemTray::createPanel()
{
    auto* connection = connection_.get();
    const std::array<std::uint32_t, 3> values{pixelOf(look_.panel), 1, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY};
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, panel_, connection_.root(), 0, 0, panelWidth,
                      static_cast<std::uint16_t>(look_.iconSide + 2 * panelPadding), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    if (look_.icons)
        sayColours();
    if (look_.wantsOpacity)
        sayVisual();
    xcb_map_window(connection, panel_);
    connection_.synchronize();
}

void SystemTray::sayColours()
{
    constexpr std::size_t meanings = 4;  // The usual one, errors, warnings and success.
    constexpr std::uint32_t wider = 257; // From 8 to 16 bits.
    std::array<std::uint32_t, 3 * meanings> units{};
    for (std::size_t index = 0; index < units.size(); ++index)
        units.at(index) = look_.icons->at(index % 3) * wider;
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, panel_,
                        connection_.atom("_NET_SYSTEM_TRAY_COLORS"), XCB_ATOM_CARDINAL, 32, units.size(),
                        units.data());
}

void SystemTray::sayVisual()
{
    constexpr std::uint8_t depth = 32;
    auto depths = xcb_screen_allowed_depths_iterator(&connection_.screen());
    while (depths.rem > 0 && depths.data->depth != depth)
        xcb_depth_next(&depths);
    if (depths.rem == 0 || depths.data->visuals_len == 0)
        throw DesktopFailure("the X server has no visual with an opacity");
    const xcb_visualid_t visual = xcb_depth_visuals_iterator(depths.data).data->visual_id;
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, panel_,
                        connection_.atom("_NET_SYSTEM_TRAY_VISUAL"), XCB_ATOM_VISUALID, 32, 1, &visual);
}

void SystemTray::takeOver()
{
    const xcb_atom_t selection = connection_.atom("_NET_SYSTEM_TRAY_S0");
    xcb_set_selection_owner(connection_.get(), panel_, selection, XCB_CURRENT_TIME);
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = connection_.root();
    message.type = connection_.atom("MANAGER");
    message.data.data32[0] = XCB_CURRENT_TIME;
    message.data.data32[1] = selection;
    message.data.data32[2] = panel_;
    xcb_send_event(connection_.get(), 0, connection_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    connection_.synchronize();
}

void SystemTray::readEvents()
{
    const xcb_atom_t opcode = connection_.atom("_NET_SYSTEM_TRAY_OPCODE");
    constexpr std::uint32_t requestDock = 0;
    connection_.synchronize();
    while (const auto event = own(xcb_poll_for_event(connection_.get()))) {
        const int kind = event->response_type & 0x7F;
        if (kind == XCB_DESTROY_NOTIFY &&
            reinterpret_cast<const xcb_destroy_notify_event_t&>(*event).window == icon_)
            icon_ = XCB_WINDOW_NONE;
        if (kind != XCB_CLIENT_MESSAGE)
            continue;
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
        if (message.type == opcode && message.data.data32[1] == requestDock)
            take(message.data.data32[2]);
    }
}

void SystemTray::take(xcb_window_t icon)
{
    auto* connection = connection_.get();
    ++requestCount_;
    icon_ = icon;
    const auto side = static_cast<std::uint32_t>(look_.iconSide);
    const std::array<std::uint32_t, 2> extent{side, side};
    xcb_change_save_set(connection, XCB_SET_MODE_INSERT, icon);
    xcb_reparent_window(connection, icon, panel_, panelPadding, panelPadding);
    xcb_configure_window(connection, icon, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, extent.data());
    xcb_map_window(connection, icon);
    connection_.synchronize();
}

bool SystemTray::isViewable(xcb_window_t window)
{
    const auto attributes = own(xcb_get_window_attributes_reply(
        connection_.get(), xcb_get_window_attributes(connection_.get(), window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

void SystemTray::awaitIcon()
{
    observer_.waitUntil("an icon in the tray", [this] {
        readEvents();
        return icon_ != XCB_WINDOW_NONE && isViewable(icon_);
    });
}

void SystemTray::awaitNoIcon()
{
    observer_.waitUntil("no icon in the tray", [this] {
        readEvents();
        return icon_ == XCB_WINDOW_NONE;
    });
}

int SystemTray::requestCount()
{
    readEvents();
    return requestCount_;
}

Frame SystemTray::iconFrame()
{
    return {panelPadding, panelPadding, look_.iconSide, look_.iconSide};
}

std::vector<std::uint32_t> SystemTray::iconPixels()
{
    const auto side = static_cast<std::uint16_t>(look_.iconSide);
    const auto cookie = xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, icon_, 0, 0, side, side,
                                      ~std::uint32_t{0});
    const auto image = own(xcb_get_image_reply(connection_.get(), cookie, nullptr));
    if (!image)
        throw DesktopFailure("cannot read the icon");
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(side) * side);
    std::memcpy(pixels.data(), xcb_get_image_data(image.get()), pixels.size() * sizeof pixels.front());
    return pixels;
}

std::string SystemTray::iconTitle()
{
    return connection_.propertyBytes(icon_, "_NET_WM_NAME").value_or("");
}

void SystemTray::paintPanel(const Colour& colour)
{
    const std::uint32_t pixel = pixelOf(colour);
    xcb_change_window_attributes(connection_.get(), panel_, XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(connection_.get(), 0, panel_, 0, 0, 0, 0);
    connection_.synchronize();
}

} // namespace tessel::desktop
