#include "X11/TrayIcon.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

#include "X11/TrayScheme.h"

namespace tessel {

namespace {

using namespace std::chrono_literals;

/// Pixels, until the tray says otherwise, and the least that it is asked for: some give what is asked for.
constexpr std::uint16_t usualExtent = 22;
/// Pixels; no tray has larger icons.
constexpr int largestIcon = 256;
constexpr auto compositorPatience = 1s;
constexpr std::uint8_t bitsPerUnit = 32;
constexpr std::uint8_t bitsPerByte = 8;
constexpr std::uint8_t colorDepth = 32;

/// The rendering extension wants colours that are multiplied by their opacity.
std::uint32_t premultiplied(std::uint32_t color)
{
    constexpr std::uint32_t byte = 0xFF;
    const std::uint32_t alpha = color >> 24;
    const auto part = [color, alpha](unsigned int shift) {
        return ((color >> shift & byte) * alpha + byte / 2) / byte << shift;
    };
    return alpha << 24 | part(16) | part(8) | part(0);
}

} // namespace

TrayIcon::TrayIcon(std::shared_ptr<X11Connection> connection, const Tray& tray,
                   const xcb_render_query_pict_formats_reply_t& formats,
                   const StatusItemDescription& description, xcb_timestamp_t time, Handlers handlers)
    : connection_(std::move(connection))
    , tray_(tray)
    , drawIcon_(description.drawIcon)
    , handlers_(std::move(handlers))
    , screenPictures_(connection_, formats)
    , colorFormat_(formatOfColors(formats))
    , width_(usualExtent)
    , height_(usualExtent)
    , scheme_(tray.scheme)
{
    xcb_visualid_t visual = tray.visual;
    windowFormat_ = formatOfVisual(formats, visual);
    if (windowFormat_.id == XCB_NONE) {
        visual = connection_->rootVisual();
        windowFormat_ = formatOfVisual(formats, visual);
    }
    lookAgain_.setSingleShot(true);
    lookAgain_.setInterval(compositorPatience);
    QObject::connect(&lookAgain_, &QTimer::timeout, &lookAgain_, [this] { lookAround(); });
    createWindow(visual);
    describeWindow(description.title);
    askToDock(time);
    connection_->flush();
}

TrayIcon::~TrayIcon()
{
    selection_.reset();
    if (!connection_->isAlive())
        return;
    if (window_ != noWindow)
        xcb_destroy_window(connection_->raw(), window_);
    xcb_free_colormap(connection_->raw(), colormap_);
    connection_->flush();
}

void TrayIcon::createWindow(xcb_visualid_t visual)
{
    xcb_connection_t* raw = connection_->raw();
    window_ = xcb_generate_id(raw);
    colormap_ = xcb_generate_id(raw);
    xcb_create_colormap(raw, XCB_COLORMAP_ALLOC_NONE, colormap_, connection_->root(), visual);
    // The tray shows through: where windows have an opacity as nothing, else as the background that the icon
    // shares with the window it is in.
    const bool sharesBackground = visual == connection_->rootVisual();
    const std::uint32_t background = sharesBackground ? std::uint32_t{XCB_BACK_PIXMAP_PARENT_RELATIVE} : 0;
    const std::array<std::uint32_t, 3> values = {background, 0, colormap_};
    xcb_create_window(raw, windowFormat_.depth, window_, connection_->root(), 0, 0, width_, height_, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      (sharesBackground ? XCB_CW_BACK_PIXMAP : XCB_CW_BACK_PIXEL) | XCB_CW_BORDER_PIXEL |
                          XCB_CW_COLORMAP,
                      values.data());
    events_ = connection_->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
    selection_ =
        connection_->selectEvents(window_, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_EXPOSURE |
                                               XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_ENTER_WINDOW);
}

void TrayIcon::describeWindow(const std::string& title)
{
    const auto setBytes = [this](xcb_atom_t property, xcb_atom_t type, const std::string& bytes) {
        xcb_change_property(connection_->raw(), XCB_PROP_MODE_REPLACE, window_, property, type, bitsPerByte,
                            static_cast<std::uint32_t>(bytes.size()), bytes.data());
    };
    const auto setUnits = [this](xcb_atom_t property, xcb_atom_t type, std::span<const std::uint32_t> units) {
        xcb_change_property(connection_->raw(), XCB_PROP_MODE_REPLACE, window_, property, type, bitsPerUnit,
                            static_cast<std::uint32_t>(units.size()), units.data());
    };
    const X11Atoms& atoms = connection_->atoms();
    const std::string name = "tessel-clipboard";
    setBytes(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, name + '\0' + name + '\0');
    setBytes(XCB_ATOM_WM_NAME, atoms.utf8String, title);
    setBytes(atoms.netWindowName, atoms.utf8String, title);
    setUnits(atoms.netWindowProcess, XCB_ATOM_CARDINAL, std::array{static_cast<std::uint32_t>(getpid())});
    // ICCCM section 4.1.2.3, as far as the least extent: flags, four fields of old, width and height.
    std::array<std::uint32_t, 18> sizeHints{};
    constexpr std::uint32_t hasLeastExtent = 1U << 4;
    sizeHints[0] = hasLeastExtent;
    sizeHints[5] = usualExtent;
    sizeHints[6] = usualExtent;
    setUnits(XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, sizeHints);
    // The version of XEmbed, and that the icon is to be mapped.
    setUnits(atoms.embeddingInfo, atoms.embeddingInfo, std::array<std::uint32_t, 2>{0, 1});
}

void TrayIcon::askToDock(xcb_timestamp_t time)
{
    constexpr std::uint32_t requestDock = 0;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = bitsPerUnit;
    message.window = tray_.window;
    message.type = connection_->atoms().trayOpcode;
    message.data.data32[0] = time;
    message.data.data32[1] = requestDock;
    message.data.data32[2] = window_;
    xcb_send_event(connection_->raw(), 0, tray_.window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
}

void TrayIcon::follow(const xcb_generic_event_t& event)
{
    switch (eventKind(event)) {
    case XCB_REPARENT_NOTIFY:
        if (const auto& moved = eventAs<xcb_reparent_notify_event_t>(event); moved.window == window_)
            setEmbedded(moved.parent != connection_->root());
        return;
    case XCB_DESTROY_NOTIFY:
        if (eventAs<xcb_destroy_notify_event_t>(event).window != window_)
            return;
        selection_.reset();
        window_ = noWindow; // The tray has taken it along.
        return setEmbedded(false);
    case XCB_CONFIGURE_NOTIFY:
        if (const auto& sized = eventAs<xcb_configure_notify_event_t>(event); sized.window == window_) {
            width_ = sized.width;
            height_ = sized.height;
        }
        return;
    case XCB_EXPOSE:
        if (const auto& shown = eventAs<xcb_expose_event_t>(event);
            shown.window == window_ && shown.count == 0)
            refresh();
        return;
    case XCB_ENTER_NOTIFY: // The panel may have another look since.
        if (eventAs<xcb_enter_notify_event_t>(event).event == window_)
            refresh();
        return;
    case XCB_BUTTON_PRESS:
        if (const auto& press = eventAs<xcb_button_press_event_t>(event);
            press.event == window_ && press.detail <= XCB_BUTTON_INDEX_3)
            handlers_.clicked(press);
        return;
    default:
        return;
    }
}

void TrayIcon::setEmbedded(bool isEmbedded)
{
    if (std::exchange(isEmbedded_, isEmbedded) != isEmbedded)
        handlers_.embeddingDidChange();
}

void TrayIcon::refresh()
{
    // What the icon shows of the panel is as old as its last drawing, and would be all that there is to see.
    paint();
    lookAround();
    lookAgain_.start();
}

void TrayIcon::lookAround()
{
    if (tray_.scheme || window_ == noWindow)
        return;
    const auto place = xcb_translate_coordinates(connection_->raw(), window_, connection_->root(), 0, 0);
    connection_->whenReplied<xcb_translate_coordinates_reply_t>(place, lifetime_, [this](const auto* reply) {
        if (reply == nullptr)
            return;
        screenPictures_.takeLater({reply->dst_x, reply->dst_y, width_, height_}, lifetime_,
                                  [this](const ScreenPicture& picture) { adoptScheme(picture); });
    });
    connection_->flush();
}

void TrayIcon::adoptScheme(const ScreenPicture& picture)
{
    const auto scheme = schemeAround(picture);
    if (!scheme || scheme == scheme_)
        return;
    scheme_ = scheme;
    paint();
}

void TrayIcon::paint()
{
    const int pixels = std::min({int{width_}, int{height_}, largestIcon});
    if (window_ == noWindow || colorFormat_.id == XCB_NONE || windowFormat_.id == XCB_NONE)
        return;
    const StatusIcon icon = drawIcon_(pixels, scheme_.value_or(ColorScheme::dark));
    xcb_clear_area(connection_->raw(), 0, window_, 0, 0, 0, 0);
    if (icon.size > 0)
        composite(icon);
    connection_->flush();
}

void TrayIcon::composite(const StatusIcon& icon)
{
    xcb_connection_t* raw = connection_->raw();
    const auto extent = static_cast<std::uint16_t>(icon.size);
    const auto pixmap = upload(icon);
    const auto source = xcb_generate_id(raw);
    const auto target = xcb_generate_id(raw);
    xcb_render_create_picture(raw, source, pixmap, colorFormat_.id, 0, nullptr);
    xcb_render_create_picture(raw, target, window_, windowFormat_.id, 0, nullptr);
    xcb_render_composite(raw, XCB_RENDER_PICT_OP_OVER, source, XCB_NONE, target, 0, 0, 0, 0,
                         static_cast<std::int16_t>((width_ - extent) / 2),
                         static_cast<std::int16_t>((height_ - extent) / 2), extent, extent);
    xcb_render_free_picture(raw, source);
    xcb_render_free_picture(raw, target);
    xcb_free_pixmap(raw, pixmap);
}

xcb_pixmap_t TrayIcon::upload(const StatusIcon& icon)
{
    xcb_connection_t* raw = connection_->raw();
    const auto extent = static_cast<std::uint16_t>(icon.size);
    const auto pixmap = xcb_generate_id(raw);
    const auto context = xcb_generate_id(raw);
    std::vector<std::uint32_t> pixels(icon.pixels.size());
    std::ranges::transform(icon.pixels, pixels.begin(), premultiplied);
    xcb_create_pixmap(raw, colorDepth, pixmap, connection_->root(), extent, extent);
    xcb_create_gc(raw, context, pixmap, 0, nullptr);
    xcb_put_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, extent, extent, 0, 0, 0, colorDepth,
                  static_cast<std::uint32_t>(pixels.size() * sizeof(std::uint32_t)),
                  reinterpret_cast<const std::uint8_t*>(pixels.data()));
    xcb_free_gc(raw, context);
    return pixmap;
}

} // namespace tessel
