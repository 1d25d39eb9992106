#include "WindowSearch.h"

#include <algorithm>

#include "WindowManager.h"

namespace tessel::desktop {

namespace {

/// A client's window is the root's child, or inside its window manager's frame.
constexpr int deepestClient = 3;

constexpr xcb_window_t noWindow = XCB_WINDOW_NONE;

/// What i3 calls the frames that it puts around clients. Other window managers' frames have no class.
constexpr std::string_view frameClass = "i3-frame";

/// Fields of `_NET_ACTIVE_WINDOW` messages (EWMH): a pager speaks for the user.
constexpr std::uint32_t sourceIsPager = 2;

} // namespace

std::string Frame::description() const
{
    return std::to_string(width) + "x" + std::to_string(height) + "+" + std::to_string(x) + "+" +
           std::to_string(y);
}

WindowSearch::WindowSearch(XConnection& connection)
    : connection_(connection)
{}

std::vector<WindowFacts> WindowSearch::all() const
{
    std::vector<WindowFacts> found;
    collect(connection_.root(), deepestClient, found);
    return found;
}

void WindowSearch::collect(xcb_window_t parent, int depth, std::vector<WindowFacts>& found) const
{
    if (depth == 0)
        return;
    const auto cookie = xcb_query_tree(connection_.get(), parent);
    const auto tree = own(xcb_query_tree_reply(connection_.get(), cookie, nullptr));
    if (!tree)
        return;
    const auto* children = xcb_query_tree_children(tree.get());
    for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
        if (auto window = facts(children[index]);
            window && !window->className.empty() && window->className != frameClass)
            found.push_back(std::move(*window));
        else
            collect(children[index], depth - 1, found);
    }
}

std::optional<WindowFacts> WindowSearch::facts(xcb_window_t window) const
{
    auto* connection = connection_.get();
    const auto attributesCookie = xcb_get_window_attributes(connection, window);
    const auto geometryCookie = xcb_get_geometry(connection, window);
    const auto originCookie = xcb_translate_coordinates(connection, window, connection_.root(), 0, 0);
    const auto attributes = own(xcb_get_window_attributes_reply(connection, attributesCookie, nullptr));
    const auto geometry = own(xcb_get_geometry_reply(connection, geometryCookie, nullptr));
    const auto origin = own(xcb_translate_coordinates_reply(connection, originCookie, nullptr));
    if (!attributes || !geometry || !origin)
        return std::nullopt;

    WindowFacts facts;
    facts.window = window;
    facts.isViewable = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    facts.frame = {origin->dst_x, origin->dst_y, geometry->width, geometry->height};
    if (const auto names = connection_.propertyBytes(window, "WM_CLASS")) {
        const auto separator = std::min(names->find('\0'), names->size());
        facts.instanceName = names->substr(0, separator);
        facts.className = names->substr(std::min(separator + 1, names->size()));
        if (facts.className.ends_with('\0'))
            facts.className.pop_back();
    }
    facts.title = connection_.propertyBytes(window, "_NET_WM_NAME")
                      .value_or(connection_.propertyBytes(window, "WM_NAME").value_or(""));
    if (const auto process = connection_.propertyItems(window, "_NET_WM_PID"); !process.empty())
        facts.processIdentifier = static_cast<pid_t>(process.front());
    return facts;
}

std::optional<WindowFacts> WindowSearch::find(const WindowCondition& condition) const
{
    const auto windows = all();
    const auto found = std::find_if(windows.rbegin(), windows.rend(), condition);
    return found == windows.rend() ? std::nullopt : std::optional(*found);
}

WindowFacts WindowSearch::waitFor(const std::string& awaited, const WindowCondition& condition,
                                  Deadline deadline) const
{
    std::optional<WindowFacts> found;
    connection_.waitUntil(
        awaited,
        [&] {
            found = find(condition);
            return found.has_value();
        },
        deadline);
    return *found;
}

void WindowSearch::waitUntilNone(const std::string& awaited, const WindowCondition& condition,
                                 Deadline deadline) const
{
    connection_.waitUntil(
        awaited, [&] { return !find(condition); }, deadline);
}

xcb_window_t WindowSearch::activeWindow() const
{
    const auto active = connection_.propertyItems(connection_.root(), "_NET_ACTIVE_WINDOW");
    return active.empty() ? noWindow : active.front();
}

xcb_window_t WindowSearch::focusWindow() const
{
    const auto cookie = xcb_get_input_focus(connection_.get());
    const auto reply = own(xcb_get_input_focus_reply(connection_.get(), cookie, nullptr));
    return reply ? reply->focus : noWindow;
}

bool WindowSearch::hasFocus(xcb_window_t window) const
{
    auto candidate = focusWindow();
    while (candidate != XCB_WINDOW_NONE && candidate != connection_.root()) {
        if (candidate == window)
            return true;
        const auto cookie = xcb_query_tree(connection_.get(), candidate);
        const auto tree = own(xcb_query_tree_reply(connection_.get(), cookie, nullptr));
        candidate = tree ? tree->parent : noWindow;
    }
    return false;
}

void WindowSearch::activate(xcb_window_t window) const
{
    if (!WindowManager::isRunning(connection_)) {
        constexpr std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(connection_.get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        xcb_set_input_focus(connection_.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        connection_.waitUntil("the window to have the focus", [&] { return hasFocus(window); });
        return;
    }
    requestOfWindowManager(window, "_NET_ACTIVE_WINDOW", {sourceIsPager});
    connection_.waitUntil("the window to become active",
                          [&] { return activeWindow() == window && hasFocus(window); });
}

void WindowSearch::makeFullScreen(xcb_window_t window) const
{
    constexpr std::uint32_t add = 1;
    requestOfWindowManager(window, "_NET_WM_STATE",
                           {add, connection_.atom("_NET_WM_STATE_FULLSCREEN"), 0, sourceIsPager});
    const auto& screen = connection_.screen();
    const Frame whole{0, 0, screen.width_in_pixels, screen.height_in_pixels};
    connection_.waitUntil("the window to have the whole screen", [&] {
        const auto now = facts(window);
        return now && now->frame == whole;
    });
}

void WindowSearch::move(xcb_window_t window, int x, int y) const
{
    const std::array values{static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)};
    xcb_configure_window(connection_.get(), window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values.data());
    connection_.flush();
}

void WindowSearch::minimise(xcb_window_t window) const
{
    constexpr std::uint32_t iconicState = 3;
    requestOfWindowManager(window, "WM_CHANGE_STATE", {iconicState});
}

void WindowSearch::requestOfWindowManager(xcb_window_t window, std::string_view request,
                                          const std::array<std::uint32_t, 5>& details) const
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = connection_.atom(request);
    std::copy(details.begin(), details.end(), message.data.data32);
    xcb_send_event(connection_.get(), 0, connection_.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
}

std::vector<std::string> WindowSearch::atomNames(xcb_window_t window, std::string_view property) const
{
    std::vector<std::string> names;
    for (const auto atom : connection_.propertyItems(window, property)) {
        const auto cookie = xcb_get_atom_name(connection_.get(), atom);
        const auto reply = own(xcb_get_atom_name_reply(connection_.get(), cookie, nullptr));
        if (reply)
            names.emplace_back(xcb_get_atom_name_name(reply.get()),
                               static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get())));
    }
    return names;
}

WindowCondition hasTitle(std::string title)
{
    return [title = std::move(title)](const WindowFacts& window) { return window.title == title; };
}

WindowCondition isViewableWithTitle(std::string title)
{
    return [title = std::move(title)](const WindowFacts& window) {
        return window.isViewable && window.title == title;
    };
}

WindowCondition isViewableWindowOf(pid_t process)
{
    return [process](const WindowFacts& window) {
        return window.isViewable && window.processIdentifier == process;
    };
}

} // namespace tessel::desktop
