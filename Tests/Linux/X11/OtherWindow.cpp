#include "OtherWindow.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "Typist.h"
#include "WaitUntil.h"
#include "X11/FocusEvents.h"
#include "X11/X11Reply.h"

namespace tessel {

namespace {

constexpr std::uint16_t everyModifierBit = 0xFF;

bool isModifierKey(Keycode key)
{
    return key == Key::controlLeft || key == Key::shiftLeft || key == Key::altLeft || key == Key::superLeft ||
           key == Key::capsLock || key == Key::numLock;
}

} // namespace

OtherWindow::OtherWindow(const std::string& windowClass)
    : connection_(xcb_connect(nullptr, nullptr))
{
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    root_ = screen->root;
    window_ = xcb_generate_id(connection_);
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                 XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_create_window(connection_, 0, window_, root_, 50, 50, 200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    std::string names = windowClass + '\0' + windowClass + '\0';
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(names.size()), names.data());
    notifier_ =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { read(); });
    xcb_flush(connection_);
}

OtherWindow::~OtherWindow()
{
    notifier_.reset();
    xcb_disconnect(connection_);
}

void OtherWindow::show()
{
    xcb_map_window(connection_, window_);
    xcb_flush(connection_);
}

void OtherWindow::takeFocus()
{
    // The server refuses the focus to a window that cannot be seen, and a window manager's frame may come
    // later.
    EXPECT_TRUE(waitUntil([this] { return isViewable(); }));
    xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, window_, XCB_CURRENT_TIME);
    xcb_flush(connection_);
}

bool OtherWindow::isViewable()
{
    const X11Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window_), nullptr));
    read(); // What the server has sent meanwhile has been received, and wakes nobody any more.
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

void OtherWindow::takeFocusInside()
{
    inner_ = xcb_generate_id(connection_);
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
    xcb_create_window(connection_, 0, inner_, window_, 0, 0, 10, 10, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    xcb_map_window(connection_, inner_);
    xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, inner_, XCB_CURRENT_TIME);
    xcb_flush(connection_);
}

void OtherWindow::raise()
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection_, window_, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_flush(connection_);
}

void OtherWindow::closeWindow()
{
    xcb_destroy_window(connection_, window_);
    xcb_flush(connection_);
}

xcb_atom_t OtherWindow::atom(const std::string& name)
{
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_, xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr));
    return reply->atom;
}

void OtherWindow::setProperty(const std::string& name, xcb_atom_t type,
                              const std::vector<std::uint32_t>& units)
{
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window_, atom(name), type, 32,
                        static_cast<std::uint32_t>(units.size()), units.data());
    xcb_flush(connection_);
}

void OtherWindow::askForFrameExtents()
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window_;
    message.type = atom("_NET_REQUEST_FRAME_EXTENTS");
    xcb_send_event(connection_, 0, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection_);
}

bool OtherWindow::hasFrameExtents()
{
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection_,
        xcb_get_property(connection_, 0, window_, atom("_NET_FRAME_EXTENTS"), XCB_ATOM_ANY, 0, 4), nullptr));
    return reply && reply->type != XCB_NONE;
}

void OtherWindow::becomeDock(const std::vector<std::uint32_t>& strutPartial)
{
    setProperty("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {atom("_NET_WM_WINDOW_TYPE_DOCK")});
    setProperty("_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, strutPartial);
}

int OtherWindow::presses(Keycode key, std::uint16_t modifiers) const
{
    return static_cast<int>(std::count(strokes_.begin(), strokes_.end(), Stroke{key, modifiers, true}));
}

int OtherWindow::presses() const
{
    return static_cast<int>(std::count_if(strokes_.begin(), strokes_.end(), [](const Stroke& stroke) {
        return stroke.isPress && !isModifierKey(stroke.key);
    }));
}

void OtherWindow::synchronize()
{
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    read();
}

bool OtherWindow::grabKey(Keycode key, std::uint16_t modifiers)
{
    const auto cookie =
        xcb_grab_key_checked(connection_, 0, root_, modifiers, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(connection_, cookie));
    return !error;
}

bool OtherWindow::grabKeyboard()
{
    const auto cookie =
        xcb_grab_keyboard(connection_, 0, root_, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const X11Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(connection_, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void OtherWindow::ungrabKeyboard()
{
    xcb_ungrab_keyboard(connection_, XCB_CURRENT_TIME);
    synchronize();
}

void OtherWindow::ungrabKey(Keycode key, std::uint16_t modifiers)
{
    xcb_ungrab_key(connection_, key, root_, modifiers);
    synchronize();
}

void OtherWindow::read()
{
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)})
        handle(*event);
}

void OtherWindow::handle(const xcb_generic_event_t& event)
{
    const auto kind = event.response_type & 0x7F;
    if (kind == XCB_KEY_PRESS || kind == XCB_KEY_RELEASE) {
        const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
        strokes_.push_back(
            {key.detail, static_cast<std::uint16_t>(key.state & everyModifierBit), kind == XCB_KEY_PRESS});
    } else if (kind == XCB_FOCUS_IN || kind == XCB_FOCUS_OUT) {
        const auto meaning = meaningOfFocusEvent(reinterpret_cast<const xcb_focus_in_event_t&>(event));
        if (meaning != FocusMeaning::nothing)
            hasFocus_ = meaning == FocusMeaning::gained;
    } else if (kind == XCB_MAP_NOTIFY) {
        isMapped_ = true;
    }
}

} // namespace tessel
