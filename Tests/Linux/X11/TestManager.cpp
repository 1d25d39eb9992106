#include "TestManager.h"

#include "X11/X11Reply.h"

namespace tessel {

TestManager::TestManager()
    : connection_(xcb_connect(nullptr, nullptr))
{
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    root_ = screen->root;
    window_ = xcb_generate_id(connection_);
    xcb_create_window(connection_, 0, window_, root_, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    synchronize();
}

TestManager::~TestManager()
{
    for (const auto* name : {"_NET_SUPPORTING_WM_CHECK", "_NET_SUPPORTED"})
        xcb_delete_property(connection_, root_, atom(name));
    synchronize();
    xcb_disconnect(connection_);
}

void TestManager::takeOver()
{
    const std::uint32_t redirection = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &redirection);
    synchronize();
}

void TestManager::map(xcb_window_t window)
{
    xcb_map_window(connection_, window);
    synchronize();
}

void TestManager::announce(const std::vector<std::string>& supported)
{
    constexpr std::uint8_t bitsPerUnit = 32;
    std::vector<xcb_atom_t> atoms;
    for (const auto& name : supported)
        atoms.push_back(atom(name));
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, root_, atom("_NET_SUPPORTED"), XCB_ATOM_ATOM,
                        bitsPerUnit, static_cast<std::uint32_t>(atoms.size()), atoms.data());
    for (const xcb_window_t holder : {window_, root_})
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, holder, atom("_NET_SUPPORTING_WM_CHECK"),
                            XCB_ATOM_WINDOW, bitsPerUnit, 1, &window_);
    synchronize();
}

void TestManager::pretendFocus(xcb_window_t window)
{
    xcb_focus_in_event_t event{};
    event.response_type = XCB_FOCUS_IN;
    event.detail = XCB_NOTIFY_DETAIL_NONLINEAR;
    event.event = window;
    event.mode = XCB_NOTIFY_MODE_NORMAL;
    xcb_send_event(connection_, 0, window, XCB_EVENT_MASK_FOCUS_CHANGE,
                   reinterpret_cast<const char*>(&event));
    synchronize();
}

xcb_atom_t TestManager::atom(const std::string& name)
{
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_, xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr));
    return reply->atom;
}

void TestManager::synchronize()
{
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

} // namespace tessel
