#include "X11/WindowManager.h"

#include <algorithm>
#include <utility>

#include "X11/PropertyValue.h"

namespace tessel {

namespace {

/// More 32-bit units than any window manager's list of supported hints has.
constexpr std::uint32_t propertyUnits = 4096;

} // namespace

WindowManager::WindowManager(std::shared_ptr<X11Connection> connection)
    : connection_(std::move(connection))
{
    if (!connection_->isAlive())
        return;
    const X11Atoms& atoms = connection_->atoms();
    events_ = connection_->observeEvents([this](const xcb_generic_event_t& event) { follow(event); });
    const auto check = requestRootProperty(atoms.netSupportingWindowManagerCheck);
    const auto supported = requestRootProperty(atoms.netSupported);
    const auto active = requestRootProperty(atoms.netActiveWindow);
    const xcb_window_t candidate = firstUnitOf(connection_->wait(xcb_get_property_reply, check).get());
    adoptSupported(connection_->wait(xcb_get_property_reply, supported).get());
    activeWindow_ = firstUnitOf(connection_->wait(xcb_get_property_reply, active).get());
    if (candidate == noWindow)
        return;
    // A manager that has gone may leave its properties on the root window behind (EWMH,
    // `_NET_SUPPORTING_WM_CHECK`).
    const auto own = connection_->wait(
        xcb_get_property_reply, xcb_get_property(connection_->raw(), 0, candidate,
                                                 atoms.netSupportingWindowManagerCheck, XCB_ATOM_ANY, 0, 1));
    if (firstUnitOf(own.get()) == candidate)
        adoptCheckWindow(candidate);
}

std::optional<xcb_window_t> WindowManager::activeWindow() const
{
    if (!maintainsActiveWindow() || activeWindow_ == noWindow)
        return std::nullopt;
    return activeWindow_;
}

std::optional<xcb_window_t> WindowManager::currentActiveWindow()
{
    if (!connection_->isAlive() || !maintainsActiveWindow())
        return std::nullopt;
    const auto reply =
        connection_->wait(xcb_get_property_reply, requestRootProperty(connection_->atoms().netActiveWindow));
    const xcb_window_t window = firstUnitOf(reply.get());
    if (window == noWindow)
        return std::nullopt;
    return window;
}

Token WindowManager::observeActiveWindow(std::function<void()> didChange)
{
    return observers_.add(std::move(didChange));
}

Token WindowManager::observeManager(std::function<void()> didChange)
{
    return managerObservers_.add(std::move(didChange));
}

xcb_get_property_cookie_t WindowManager::requestRootProperty(xcb_atom_t property)
{
    return xcb_get_property(connection_->raw(), 0, connection_->root(), property, XCB_ATOM_ANY, 0,
                            propertyUnits);
}

void WindowManager::follow(const xcb_generic_event_t& event)
{
    if (eventKind(event) == XCB_DESTROY_NOTIFY) {
        if (eventAs<xcb_destroy_notify_event_t>(event).window == checkWindow_)
            adoptCheckWindow(noWindow);
        return;
    }
    if (eventKind(event) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& changed = eventAs<xcb_property_notify_event_t>(event);
    if (changed.window != connection_->root())
        return;
    const X11Atoms& atoms = connection_->atoms();
    if (changed.atom == atoms.netActiveWindow)
        refreshActiveWindow();
    else if (changed.atom == atoms.netSupportingWindowManagerCheck || changed.atom == atoms.netSupported)
        refreshManager();
}

void WindowManager::refreshActiveWindow()
{
    connection_->whenReplied<xcb_get_property_reply_t>(
        requestRootProperty(connection_->atoms().netActiveWindow), lifetime_,
        [this](const auto* reply) { adoptActiveWindow(firstUnitOf(reply)); });
    connection_->flush();
}

void WindowManager::refreshManager()
{
    const X11Atoms& atoms = connection_->atoms();
    connection_->whenReplied<xcb_get_property_reply_t>(requestRootProperty(atoms.netSupported), lifetime_,
                                                       [this](const auto* reply) { adoptSupported(reply); });
    connection_->whenReplied<xcb_get_property_reply_t>(
        requestRootProperty(atoms.netSupportingWindowManagerCheck), lifetime_,
        [this](const auto* reply) { verifyCheckWindow(firstUnitOf(reply)); });
    connection_->flush();
}

void WindowManager::verifyCheckWindow(xcb_window_t candidate)
{
    if (candidate == noWindow)
        return adoptCheckWindow(noWindow);
    const auto cookie =
        xcb_get_property(connection_->raw(), 0, candidate,
                         connection_->atoms().netSupportingWindowManagerCheck, XCB_ATOM_ANY, 0, 1);
    connection_->whenReplied<xcb_get_property_reply_t>(
        cookie, lifetime_, [this, candidate](const auto* reply) {
            adoptCheckWindow(firstUnitOf(reply) == candidate ? candidate : noWindow);
        });
    connection_->flush();
}

void WindowManager::adoptCheckWindow(xcb_window_t window)
{
    if (window == checkWindow_)
        return;
    checkWindow_ = window;
    checkWindowEvents_ = connection_->selectEvents(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    connection_->flush();
    observers_.tell();
    managerObservers_.tell();
}

void WindowManager::adoptSupported(const xcb_get_property_reply_t* reply)
{
    const auto supported = unitsOf(reply);
    const auto isSupported = [&](xcb_atom_t hint) {
        return std::find(supported.begin(), supported.end(), hint) != supported.end();
    };
    const bool supportsActiveWindow = isSupported(connection_->atoms().netActiveWindow);
    const bool supportsWorkArea = isSupported(connection_->atoms().netWorkArea);
    const bool activeWindowChanged = supportsActiveWindow != supportsActiveWindow_;
    const bool workAreaChanged = supportsWorkArea != supportsWorkArea_;
    supportsActiveWindow_ = supportsActiveWindow;
    supportsWorkArea_ = supportsWorkArea;
    if (activeWindowChanged)
        observers_.tell();
    if (activeWindowChanged || workAreaChanged)
        managerObservers_.tell();
}

void WindowManager::adoptActiveWindow(xcb_window_t window)
{
    if (window == activeWindow_)
        return;
    activeWindow_ = window;
    observers_.tell();
}

} // namespace tessel
