#include "Dock.h"

#include <array>

namespace tessel::desktop {

namespace {

/// From the edge of the screen to the far side of the dock, in pixels.
int thicknessOf(ScreenEdge edge, const Frame& frame, const xcb_screen_t& screen)
{
    switch (edge) {
    case ScreenEdge::left:
        return frame.x + frame.width;
    case ScreenEdge::right:
        return screen.width_in_pixels - frame.x;
    case ScreenEdge::top:
        return frame.y + frame.height;
    case ScreenEdge::bottom:
        return screen.height_in_pixels - frame.y;
    }
    return 0;
}

} // namespace

Dock::Dock(const std::string& displayName, ScreenEdge edge, const Frame& frame, Strut strut)
    : connection_(displayName)
    , edge_(edge)
    , strut_(strut)
    , window_(xcb_generate_id(connection_.get()))
{
    auto* connection = connection_.get();
    const std::array<std::uint32_t, 1> colour{0x808080};
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window_, connection_.root(),
                      static_cast<std::int16_t>(frame.x), static_cast<std::int16_t>(frame.y),
                      static_cast<std::uint16_t>(frame.width), static_cast<std::uint16_t>(frame.height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, colour.data());
    constexpr std::string_view names("test-dock\0Test-dock", 20);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(names.size()), names.data());
    // The user's position (ICCCM section 4.1.2.3), and a dock takes no focus (section 4.1.2.4).
    std::vector<std::uint32_t> sizeHints(18);
    sizeHints.front() = 1;
    setUnits("WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, sizeHints);
    setUnits("WM_HINTS", XCB_ATOM_WM_HINTS, {1, 0, 0, 0, 0, 0, 0, 0, 0});
    setUnits("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {connection_.atom("_NET_WM_WINDOW_TYPE_DOCK")});
    reserve(frame);
    xcb_map_window(connection, window_);
    connection_.waitUntil("the dock on the screen", [&] {
        const auto cookie = xcb_get_window_attributes(connection, window_);
        const auto attributes = own(xcb_get_window_attributes_reply(connection, cookie, nullptr));
        return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    });
}

void Dock::reserve(const Frame& frame)
{
    constexpr std::size_t edges = 4;
    const auto edge = static_cast<std::size_t>(edge_);
    const bool isUpright = edge_ == ScreenEdge::left || edge_ == ScreenEdge::right;
    std::vector<std::uint32_t> units(3 * edges);
    units[edge] = static_cast<std::uint32_t>(thicknessOf(edge_, frame, connection_.screen()));
    const int start = isUpright ? frame.y : frame.x;
    const int length = isUpright ? frame.height : frame.width;
    units[edges + 2 * edge] = static_cast<std::uint32_t>(start);
    units[edges + 2 * edge + 1] = static_cast<std::uint32_t>(start + length - 1);
    if (strut_ == Strut::partial)
        setUnits("_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, units);
    else
        setUnits("_NET_WM_STRUT", XCB_ATOM_CARDINAL, {units.begin(), units.begin() + edges});
    connection_.synchronize();
}

void Dock::releaseStrut()
{
    for (const auto* property : {"_NET_WM_STRUT_PARTIAL", "_NET_WM_STRUT"})
        xcb_delete_property(connection_.get(), window_, connection_.atom(property));
    connection_.synchronize();
}

void Dock::setUnits(std::string_view property, xcb_atom_t type, const std::vector<std::uint32_t>& units)
{
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window_, connection_.atom(property), type,
                        32, static_cast<std::uint32_t>(units.size()), units.data());
}

} // namespace tessel::desktop
