#include "TestCompositor.h"

#include "X11/X11Reply.h"

namespace tessel {

TestCompositor::TestCompositor()
    : connection_(xcb_connect(nullptr, &screenNumber_))
    , root_(xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root)
    , blur_(atom("_KDE_NET_WM_BLUR_BEHIND_REGION"))
{
    const xcb_window_t window = xcb_generate_id(connection_);
    xcb_create_window(connection_, 0, window, root_, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(connection_, window, atom("_NET_WM_CM_S" + std::to_string(screenNumber_)),
                            XCB_CURRENT_TIME);
    xcb_flush(connection_);
}

TestCompositor::~TestCompositor()
{
    xcb_disconnect(connection_);
}

void TestCompositor::announceBlur()
{
    constexpr std::uint32_t anything = 0;
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, root_, blur_, blur_, 32, 1, &anything);
    xcb_flush(connection_);
}

void TestCompositor::withdrawBlur()
{
    xcb_delete_property(connection_, root_, blur_);
    xcb_flush(connection_);
}

xcb_atom_t TestCompositor::atom(const std::string& name)
{
    const auto cookie =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
    return reply->atom;
}

} // namespace tessel
