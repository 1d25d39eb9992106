#include "X11/X11NativeWindows.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <xcb/shape.h>
#include <xcb/xfixes.h>

#include "X11/FocusRequest.h"

namespace tessel {

namespace {

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF; // EWMH, `_NET_WM_DESKTOP`.
constexpr std::uint32_t sourceIsApplication = 1;   // EWMH section 9, source indication in requests.

} // namespace

X11NativeWindows::X11NativeWindows(std::shared_ptr<X11Connection> connection,
                                   std::shared_ptr<WindowManager> windowManager,
                                   std::shared_ptr<ToolkitWindows> toolkitWindows,
                                   std::shared_ptr<UserTime> userTime)
    : connection_(std::move(connection))
    , windowManager_(std::move(windowManager))
    , toolkitWindows_(std::move(toolkitWindows))
    , userTime_(std::move(userTime))
    , screenPictures_(connection_)
{
    showing_ = toolkitWindows_->observeShowing(
        [this](xcb_window_t window, QPoint corner) { windowWillShow(window, corner); });
    unmapping_ = toolkitWindows_->observeUnmapping([this](xcb_window_t window) { windowDidUnmap(window); });
    mapping_ = toolkitWindows_->observeMapping([this](xcb_window_t window) { windowDidMap(window); });
    destruction_ = toolkitWindows_->observeDestruction([this](xcb_window_t window) {
        panels_.erase(window);
        shaped_.erase(window);
        mapped_.erase(window);
    });
    if (!connection_->isAlive())
        return;
    followCompositingManager();
    followBlur();
    learnWhatIsThere();
}

void X11NativeWindows::followCompositingManager()
{
    if (!connection_->extensions().fixes)
        return;
    const xcb_atom_t selection = connection_->atoms().compositingManager;
    events_ = connection_->observeEvents([this, selection](const xcb_generic_event_t& event) {
        if (eventKind(event) != connection_->extensions().fixesFirstEvent + XCB_XFIXES_SELECTION_NOTIFY)
            return;
        const auto& changed = eventAs<xcb_xfixes_selection_notify_event_t>(event);
        if (changed.selection != selection)
            return;
        const bool blendedBefore = blendsTranslucentWindows();
        compositingManager_ = changed.owner;
        if (blendsTranslucentWindows() != blendedBefore)
            blendingObservers_.tell();
    });
    constexpr std::uint32_t everyChange = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;
    xcb_xfixes_select_selection_input(connection_->raw(), connection_->root(), selection, everyChange);
}

Token X11NativeWindows::observeBlending(std::function<void()> didChange)
{
    return blendingObservers_.add(std::move(didChange));
}

void X11NativeWindows::followBlur()
{
    rootProperties_ = connection_->observeEvents([this](const xcb_generic_event_t& event) {
        if (eventKind(event) != XCB_PROPERTY_NOTIFY)
            return;
        const auto& changed = eventAs<xcb_property_notify_event_t>(event);
        if (changed.window == connection_->root() && changed.atom == connection_->atoms().blurBehindRegion)
            announcesBlur_ = changed.state == XCB_PROPERTY_NEW_VALUE;
    });
}

void X11NativeWindows::learnWhatIsThere()
{
    xcb_connection_t* raw = connection_->raw();
    const auto ownerCookie = xcb_get_selection_owner(raw, connection_->atoms().compositingManager);
    const auto propertiesCookie = xcb_list_properties(raw, connection_->root());
    const auto owner = connection_->wait(xcb_get_selection_owner_reply, ownerCookie);
    compositingManager_ = owner ? owner->owner : noWindow;
    if (const auto reply = connection_->wait(xcb_list_properties_reply, propertiesCookie)) {
        const std::span properties(xcb_list_properties_atoms(reply.get()), reply->atoms_len);
        announcesBlur_ =
            std::ranges::find(properties, connection_->atoms().blurBehindRegion) != properties.end();
    }
    screenPictures_.learnFormats();
}

void X11NativeWindows::blurBehind(NativeWindowHandle window, const PixelRegion& region)
{
    const auto id = static_cast<xcb_window_t>(window);
    if (!toolkitWindows_->owns(id) || !connection_->isAlive())
        return;
    const xcb_atom_t property = connection_->atoms().blurBehindRegion;
    std::vector<std::uint32_t> units;
    for (const PixelRectangle& part : region) {
        for (const int unit : {part.x, part.y, part.width, part.height})
            units.push_back(static_cast<std::uint32_t>(unit));
    }
    // With nothing in it the property would ask for the whole window.
    if (units.empty())
        xcb_delete_property(toolkitWindows_->raw(), id, property);
    else
        setUnits(id, property, XCB_ATOM_CARDINAL, units);
    xcb_flush(toolkitWindows_->raw());
}

void X11NativeWindows::cutToShape(NativeWindowHandle window, const PixelRegion& shape)
{
    const auto id = static_cast<xcb_window_t>(window);
    // Requests of an extension that the server lacks would end the toolkit's connection.
    if (!toolkitWindows_->owns(id) || !connection_->isAlive() || !connection_->extensions().shape)
        return;
    if (shape.empty() && !shaped_.contains(id))
        return;
    std::vector<xcb_rectangle_t> rectangles;
    rectangles.reserve(shape.size());
    for (const PixelRectangle& part : shape)
        rectangles.push_back({static_cast<std::int16_t>(part.x), static_cast<std::int16_t>(part.y),
                              static_cast<std::uint16_t>(part.width),
                              static_cast<std::uint16_t>(part.height)});
    xcb_connection_t* raw = toolkitWindows_->raw();
    if (rectangles.empty()) {
        xcb_shape_mask(raw, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, id, 0, 0, XCB_PIXMAP_NONE);
        shaped_.erase(id);
    } else {
        xcb_shape_rectangles(raw, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_YX_BANDED, id, 0,
                             0, static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
        shaped_.insert(id);
    }
    xcb_flush(raw);
}

std::vector<ScreenPicture> X11NativeWindows::picturesOfScreen(NativeWindowHandle window,
                                                              std::span<const ScreenPictureRequest> requests)
{
    const auto corner = ToolkitWindows::cornerOf(static_cast<xcb_window_t>(window));
    return corner ? screenPictures_.take(*corner, requests) : std::vector<ScreenPicture>(requests.size());
}

void X11NativeWindows::preparePanel(NativeWindowHandle window, const PanelTraits& traits)
{
    const auto id = static_cast<xcb_window_t>(window);
    if (!toolkitWindows_->owns(id) || !connection_->isAlive())
        return;
    panels_[id] = {traits, std::nullopt};
    applyTraits(id, traits);
    xcb_flush(toolkitWindows_->raw());
}

void X11NativeWindows::applyTraits(xcb_window_t window, const PanelTraits& traits)
{
    const X11Atoms& atoms = connection_->atoms();
    setUnits(window, atoms.netWindowType, XCB_ATOM_ATOM, std::array{atoms.netWindowTypeUtility});
    // No decorations: flags say that only the third field, the decorations, counts, and it is zero.
    constexpr std::uint32_t decorationsOnly = 1U << 1;
    setUnits(window, atoms.motifWindowHints, atoms.motifWindowHints,
             std::array<std::uint32_t, 5>{decorationsOnly, 0, 0, 0, 0});
    if (!traits.hasShadow)
        setUnits(window, atoms.compositorShadow, XCB_ATOM_CARDINAL, std::array<std::uint32_t, 1>{0});
    applyState(window, traits);
}

void X11NativeWindows::applyState(xcb_window_t window, const PanelTraits& traits)
{
    const X11Atoms& atoms = connection_->atoms();
    std::vector<std::uint32_t> state;
    if (traits.floatsAboveOthers || traits.overFullScreen)
        state.push_back(atoms.netWindowStateAbove);
    if (!traits.becomesMain) {
        state.push_back(atoms.netWindowStateSkipTaskbar);
        state.push_back(atoms.netWindowStateSkipPager);
    }
    if (traits.joinsAllSpaces) {
        state.push_back(atoms.netWindowStateSticky);
        setUnits(window, atoms.netWindowDesktop, XCB_ATOM_CARDINAL, std::array{everyDesktop});
    }
    setUnits(window, atoms.netWindowState, XCB_ATOM_ATOM, state);
}

void X11NativeWindows::setUnits(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                                std::span<const std::uint32_t> units)
{
    constexpr std::uint8_t bitsPerUnit = 32;
    xcb_change_property(toolkitWindows_->raw(), XCB_PROP_MODE_REPLACE, window, property, type, bitsPerUnit,
                        static_cast<std::uint32_t>(units.size()), units.data());
}

void X11NativeWindows::windowWillShow(xcb_window_t window, QPoint corner)
{
    mapped_.erase(window);
    // What was wanted before it was hidden is over.
    if (wantsFocus_ == window)
        wantsFocus_.reset();
    const auto found = panels_.find(window);
    if (found == panels_.end() || !connection_->isAlive())
        return;
    // Window managers remove these when a window is hidden (EWMH, `_NET_WM_STATE` and `_NET_WM_DESKTOP`).
    applyState(window, found->second.traits);
    found->second.corner = corner;
}

void X11NativeWindows::makeKeyAndOrderFront(NativeWindowHandle window)
{
    const auto id = static_cast<xcb_window_t>(window);
    if (!toolkitWindows_->owns(id) || !connection_->isAlive())
        return;
    if (!mapped_.contains(id))
        wantsFocus_ = id;
    requestFocus(id);
}

void X11NativeWindows::orderFront(NativeWindowHandle window)
{
    const auto id = static_cast<xcb_window_t>(window);
    if (!toolkitWindows_->isShown(id) || !connection_->isAlive())
        return;
    toolkitWindows_->moveToFront(id);
    const std::array<std::uint32_t, 1> above = {XCB_STACK_MODE_ABOVE};
    xcb_configure_window(toolkitWindows_->raw(), id, XCB_CONFIG_WINDOW_STACK_MODE, above.data());
    xcb_flush(toolkitWindows_->raw());
}

Token X11NativeWindows::observeOcclusion(NativeWindowHandle window,
                                         std::function<void(bool isCovered)> didChange)
{
    const auto id = static_cast<xcb_window_t>(window);
    if (!toolkitWindows_->owns(id) || !connection_->isAlive())
        return {};
    struct Observation {
        Token mapping;
        Token selection;
        Token events;
    };
    auto observation = std::make_shared<Observation>();
    // Before it is mapped, the window may not exist yet for requests on this connection.
    observation->mapping =
        toolkitWindows_->observeMapping([this, id, kept = observation.get()](xcb_window_t mapped) {
            if (mapped == id && connection_->isAlive())
                kept->selection = connection_->selectEvents(id, XCB_EVENT_MASK_VISIBILITY_CHANGE);
        });
    observation->events =
        connection_->observeEvents([id, didChange = std::move(didChange)](const xcb_generic_event_t& event) {
            if (eventKind(event) != XCB_VISIBILITY_NOTIFY)
                return;
            const auto& changed = eventAs<xcb_visibility_notify_event_t>(event);
            if (changed.window == id)
                didChange(changed.state == XCB_VISIBILITY_FULLY_OBSCURED);
        });
    return Token([observation] {});
}

void X11NativeWindows::requestFocus(xcb_window_t window)
{
    xcb_connection_t* raw = toolkitWindows_->raw();
    const xcb_timestamp_t time = userTime_->last();
    if (time != XCB_CURRENT_TIME)
        setUnits(window, connection_->atoms().netWindowUserTime, XCB_ATOM_CARDINAL, std::array{time});
    if (windowManager_->maintainsActiveWindow())
        requestActivation(raw, connection_->root(), connection_->atoms(), window, time,
                          toolkitWindows_->focusedWindow().value_or(noWindow));
    else
        takeFocus(window, time);
    xcb_flush(raw);
}

void X11NativeWindows::takeFocus(xcb_window_t window, xcb_timestamp_t time)
{
    // The window that has just gone may not have given its focus back yet: that is this one's task now.
    const auto gone = std::ranges::find_if(
        focusBefore_, [this](const auto& entry) { return !toolkitWindows_->isShown(entry.first); });
    if (gone != focusBefore_.end() && !focusBefore_.contains(window)) {
        auto task = focusBefore_.extract(gone);
        passOn(task.key(), task.mapped());
        task.key() = window;
        focusBefore_.insert(std::move(task));
    }
    // A second request would come after the first one has had its effect, and after what followed from that.
    if (std::exchange(takesFocus_, window) == window)
        return;
    whenFocusIsKnown([this, window, time](xcb_window_t focus) {
        if (takesFocus_ == window)
            takesFocus_.reset();
        if (!toolkitWindows_->isShown(window))
            return;
        rememberFocus(window, focus);
        // A window that is not mapped cannot have the focus, and a window manager may take its time.
        if (wantsFocus_ == window)
            return;
        raiseAndFocus(toolkitWindows_->raw(), window, time);
        xcb_flush(toolkitWindows_->raw());
    });
}

void X11NativeWindows::rememberFocus(xcb_window_t window, xcb_window_t focus)
{
    const bool isKnown = focusBefore_.contains(window);
    const bool isGoing = toolkitWindows_->owns(focus) && !toolkitWindows_->isShown(focus);
    if (focus != window && !(isKnown && (isNobodys(focus) || isGoing)))
        focusBefore_[window] = focus;
}

void X11NativeWindows::passOn(xcb_window_t gone, xcb_window_t focusThen)
{
    for (auto& [window, before] : focusBefore_) {
        if (before == gone)
            before = focusThen;
    }
}

bool X11NativeWindows::isNobodys(xcb_window_t focus) const
{
    return focus <= XCB_INPUT_FOCUS_POINTER_ROOT || focus == connection_->root();
}

void X11NativeWindows::whenFocusIsKnown(std::function<void(xcb_window_t)> handler)
{
    connection_->whenReplied<xcb_get_input_focus_reply_t>(xcb_get_input_focus(connection_->raw()), lifetime_,
                                                          [handler = std::move(handler)](const auto* reply) {
                                                              if (reply != nullptr)
                                                                  handler(reply->focus);
                                                          });
    connection_->flush();
}

void X11NativeWindows::windowDidUnmap(xcb_window_t window)
{
    mapped_.erase(window);
    if (!focusBefore_.contains(window) || !connection_->isAlive())
        return;
    whenFocusIsKnown([this, window](xcb_window_t focus) {
        // It may have come back, or another one may have taken over meanwhile.
        const auto found = focusBefore_.find(window);
        if (found == focusBefore_.end() || toolkitWindows_->isShown(window))
            return;
        const xcb_window_t focusThen = found->second;
        focusBefore_.erase(found);
        passOn(window, focusThen);
        // The server has taken the focus from the hidden window. Where it is anybody's, somebody has put it.
        if (isNobodys(focus) && !windowManager_->maintainsActiveWindow())
            giveFocusBack(focusThen);
    });
}

void X11NativeWindows::giveFocusBack(xcb_window_t focus)
{
    xcb_connection_t* raw = toolkitWindows_->raw();
    const auto cookie =
        xcb_set_input_focus_checked(raw, XCB_INPUT_FOCUS_POINTER_ROOT, focus, userTime_->last());
    xcb_discard_reply(raw, cookie.sequence); // That window may have gone.
    xcb_flush(raw);
}

void X11NativeWindows::settle(xcb_window_t window, Panel& panel)
{
    xcb_connection_t* raw = toolkitWindows_->raw();
    // kwin puts a transient window of a group on the current desktop, whatever its properties say.
    if (panel.traits.joinsAllSpaces)
        requestOfWindowManager(raw, connection_->root(), window, connection_->atoms().netWindowDesktop,
                               {everyDesktop, sourceIsApplication});
    // i3 leaves room for a title bar before it finds out that there is none.
    if (const auto corner = std::exchange(panel.corner, std::nullopt)) {
        const std::array values = {static_cast<std::uint32_t>(corner->x()),
                                   static_cast<std::uint32_t>(corner->y())};
        xcb_configure_window(raw, window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values.data());
    }
    // It also cuts its frame to the shape that a window has below a title bar, and looks again only when the
    // shape is set. A window without a shape of its own must not get one.
    if (shaped_.contains(window))
        xcb_shape_combine(raw, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_SHAPE_SK_BOUNDING, window, 0, 0,
                          window);
    xcb_flush(raw);
}

void X11NativeWindows::windowDidMap(xcb_window_t window)
{
    // It may have been hidden again before this was read.
    if (!toolkitWindows_->isShown(window) || !connection_->isAlive())
        return;
    mapped_.insert(window);
    const auto panel = panels_.find(window);
    if (panel != panels_.end() && windowManager_->maintainsActiveWindow())
        settle(window, panel->second);
    if (wantsFocus_ != window)
        return;
    wantsFocus_.reset();
    // The request from before may have come too early for a window manager that takes its time.
    if (toolkitWindows_->focusedWindow() != window)
        requestFocus(window);
}

} // namespace tessel
