#include "X11/DockStruts.h"

#include <algorithm>
#include <utility>

#include "X11/PropertyValue.h"

namespace tessel {

namespace {

/// More windows than a desktop has.
constexpr std::uint32_t clientListUnits = 16384;
/// Twelve numbers of a strut; a handful of window types.
constexpr std::uint32_t windowPropertyUnits = 32;

} // namespace

DockStruts::DockStruts(std::shared_ptr<X11Connection> connection,
                       std::shared_ptr<WindowManager> windowManager)
    : connection_(std::move(connection))
    , windowManager_(std::move(windowManager))
{
    if (!connection_->isAlive())
        return;
    events_ = connection_->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
    manager_ = windowManager_->observeManager([this] { followManager(); });
    refreshClientList();
    followManager();
}

std::vector<Strut> DockStruts::struts() const
{
    std::vector<Strut> struts;
    for (const auto& [window, entry] : windows_)
        if (const auto strut = strutFromProperties(entry.partial, entry.whole))
            struts.push_back(*strut);
    return struts;
}

void DockStruts::follow(const xcb_generic_event_t& event)
{
    switch (eventKind(event)) {
    case XCB_PROPERTY_NOTIFY:
        return followProperty(eventAs<xcb_property_notify_event_t>(event));
    case XCB_MAP_NOTIFY:
        if (everyWindow_)
            consider(eventAs<xcb_map_notify_event_t>(event).window);
        return;
    case XCB_REPARENT_NOTIFY: // Into the frame of a window manager.
        if (everyWindow_)
            consider(eventAs<xcb_reparent_notify_event_t>(event).window);
        return;
    case XCB_DESTROY_NOTIFY:
        windows_.erase(eventAs<xcb_destroy_notify_event_t>(event).window);
        return;
    default:
        return;
    }
}

void DockStruts::followProperty(const xcb_property_notify_event_t& changed)
{
    const X11Atoms& atoms = connection_->atoms();
    if (changed.window == connection_->root()) {
        if (changed.atom == atoms.netClientList)
            refreshClientList();
        else if (changed.atom ==
                 atoms.netWorkArea) // The window manager has seen a strut that we may not watch.
            refreshEveryWindow();
        return;
    }
    const bool isStrut = changed.atom == atoms.netWindowStrut || changed.atom == atoms.netWindowStrutPartial;
    if (isStrut && windows_.contains(changed.window))
        refreshWindow(changed.window);
}

void DockStruts::followManager()
{
    if (windowManager_->maintainsWorkArea()) {
        everyWindow_ = {};
        std::erase_if(windows_, [](const auto& entry) { return !entry.second.isListed; });
    } else if (!everyWindow_) {
        everyWindow_ = connection_->selectEvents(connection_->root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
        constexpr int rootAndFrames = 2;
        search(connection_->root(), rootAndFrames);
    }
    connection_->flush();
}

void DockStruts::search(xcb_window_t parent, int depth)
{
    if (depth == 0)
        return;
    connection_->whenReplied<xcb_query_tree_reply_t>(
        xcb_query_tree(connection_->raw(), parent), lifetime_, [this, depth](const auto* reply) {
            if (reply == nullptr || !everyWindow_)
                return;
            const xcb_window_t* children = xcb_query_tree_children(reply);
            for (int index = 0; index < xcb_query_tree_children_length(reply); ++index) {
                consider(children[index]);
                search(children[index], depth - 1);
            }
            connection_->flush();
        });
}

void DockStruts::consider(xcb_window_t window)
{
    if (windows_.try_emplace(window).second)
        refreshWindow(window);
}

void DockStruts::refreshClientList()
{
    const auto cookie =
        xcb_get_property(connection_->raw(), 0, connection_->root(), connection_->atoms().netClientList,
                         XCB_ATOM_WINDOW, 0, clientListUnits);
    connection_->whenReplied<xcb_get_property_reply_t>(cookie, lifetime_,
                                                       [this](const auto* reply) { adoptClientList(reply); });
    connection_->flush();
}

void DockStruts::adoptClientList(const xcb_get_property_reply_t* reply)
{
    const auto clients = unitsOf(reply);
    std::erase_if(windows_, [&](const auto& entry) {
        return entry.second.isListed &&
               std::find(clients.begin(), clients.end(), entry.first) == clients.end();
    });
    for (const xcb_window_t window : clients) {
        consider(window);
        windows_[window].isListed = true;
    }
}

void DockStruts::refreshEveryWindow()
{
    for (const auto& [window, entry] : windows_)
        refreshWindow(window);
}

void DockStruts::refreshWindow(xcb_window_t window)
{
    const X11Atoms& atoms = connection_->atoms();
    requestUnits(window, atoms.netWindowType, [dock = atoms.netWindowTypeDock](Window& entry, auto units) {
        entry.isDock = std::find(units.begin(), units.end(), dock) != units.end();
    });
    requestUnits(window, atoms.netWindowStrutPartial,
                 [](Window& entry, auto units) { entry.partial = std::move(units); });
    requestUnits(window, atoms.netWindowStrut, [this, window](Window& entry, auto units) {
        entry.whole = std::move(units);
        watchIfDock(window, entry);
    });
    connection_->flush();
}

void DockStruts::requestUnits(xcb_window_t window, xcb_atom_t property,
                              std::function<void(Window&, std::vector<std::uint32_t>)> adopt)
{
    const auto cookie =
        xcb_get_property(connection_->raw(), 0, window, property, XCB_ATOM_ANY, 0, windowPropertyUnits);
    connection_->whenReplied<xcb_get_property_reply_t>(
        cookie, lifetime_, [this, window, adopt = std::move(adopt)](const auto* reply) {
            const auto found = windows_.find(window);
            if (found == windows_.end())
                return;
            const auto units = unitsOf(reply);
            adopt(found->second, {units.begin(), units.end()});
        });
}

void DockStruts::watchIfDock(xcb_window_t window, Window& entry)
{
    const bool isOfInterest = entry.isDock || strutFromProperties(entry.partial, entry.whole);
    if (!isOfInterest && !entry.isListed) {
        windows_.erase(window);
        return;
    }
    if (!isOfInterest || entry.selection)
        return;
    entry.selection =
        connection_->selectEvents(window, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    // It may have changed between the reading and the selection.
    refreshWindow(window);
}

} // namespace tessel
