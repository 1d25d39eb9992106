#include "X11/WindowAncestry.h"

#include <utility>

namespace tessel {

namespace {

/// Deeper than any program nests its windows: ends the search should somebody reparent windows all the time.
constexpr std::size_t maximumDepth = 64;

bool isRealWindow(xcb_window_t window)
{
    return window > XCB_INPUT_FOCUS_POINTER_ROOT;
}

void climb(X11Connection& connection, WindowAncestry chain, std::weak_ptr<const void> owner,
           std::function<void(const WindowAncestry&)> handler)
{
    const auto cookie = xcb_query_tree(connection.raw(), chain.back());
    connection.whenReplied<xcb_query_tree_reply_t>(
        cookie, owner,
        [&connection, chain = std::move(chain), owner,
         handler = std::move(handler)](const auto* reply) mutable {
            if (reply == nullptr || chain.size() > maximumDepth)
                return handler({});
            if (reply->parent == reply->root || reply->parent == noWindow)
                return handler(chain);
            chain.push_back(reply->parent);
            climb(connection, std::move(chain), std::move(owner), std::move(handler));
        });
    connection.flush();
}

} // namespace

WindowAncestry ancestryOf(X11Connection& connection, xcb_window_t window)
{
    WindowAncestry chain;
    while (isRealWindow(window) && window != connection.root()) {
        const auto reply = connection.wait(xcb_query_tree_reply, xcb_query_tree(connection.raw(), window));
        if (!reply || chain.size() > maximumDepth)
            return {};
        chain.push_back(window);
        window = reply->parent;
    }
    return chain;
}

void findAncestry(X11Connection& connection, xcb_window_t window, std::weak_ptr<const void> owner,
                  std::function<void(const WindowAncestry&)> handler)
{
    if (!connection.isAlive() || !isRealWindow(window) || window == connection.root())
        return handler({});
    climb(connection, {window}, std::move(owner), std::move(handler));
}

} // namespace tessel
