#include "X11/X11Workspace.h"

#include <utility>

#include <QtCore/QProcess>
#include <QtCore/QStringList>

#include "X11/PropertyValue.h"
#include "X11/RecordedWindow.h"
#include "X11/WindowAncestry.h"

namespace tessel {

X11Workspace::X11Workspace(std::shared_ptr<X11Connection> connection,
                           std::shared_ptr<WindowManager> windowManager,
                           std::shared_ptr<ToolkitWindows> toolkitWindows, std::shared_ptr<UserTime> userTime,
                           Launcher launcher, std::function<void()> willActivate)
    : connection_(std::move(connection))
    , windowManager_(std::move(windowManager))
    , toolkitWindows_(std::move(toolkitWindows))
    , userTime_(std::move(userTime))
    , launcher_(std::move(launcher))
    , willActivate_(std::move(willActivate))
{}

std::shared_ptr<RunningApplication> X11Workspace::frontmostApplication()
{
    const auto front = frontWindow();
    if (!front)
        return nullptr;
    return std::make_shared<RecordedWindow>(
        RecordedWindow::Rooms{connection_, windowManager_, toolkitWindows_, userTime_, willActivate_},
        front->window, front->focus);
}

std::optional<X11Workspace::FrontWindow> X11Workspace::frontWindow()
{
    if (!connection_->isAlive())
        return std::nullopt;
    if (!windowManager_->maintainsActiveWindow())
        return frontWindowByFocus();
    const auto active = windowManager_->currentActiveWindow();
    // With nothing left to activate, openbox goes on announcing our closed panel.
    if (!active || (toolkitWindows_->owns(*active) && !toolkitWindows_->isShown(*active)))
        return std::nullopt;
    return FrontWindow{*active, *active};
}

std::optional<X11Workspace::FrontWindow> X11Workspace::frontWindowByFocus()
{
    auto* raw = connection_->raw();
    const auto focusCookie = xcb_get_input_focus(raw);
    const auto pointerCookie = xcb_query_pointer(raw, connection_->root());
    const auto focus = connection_->wait(xcb_get_input_focus_reply, focusCookie);
    const auto pointer = connection_->wait(xcb_query_pointer_reply, pointerCookie);
    if (!focus || focus->focus == XCB_INPUT_FOCUS_NONE)
        return std::nullopt;
    xcb_window_t window = focus->focus;
    // The keys go to the window under the pointer (X protocol, SetInputFocus).
    if (window == XCB_INPUT_FOCUS_POINTER_ROOT || window == connection_->root())
        window = pointer ? pointer->child : noWindow;
    const WindowAncestry ancestry = ancestryOf(*connection_, window);
    if (ancestry.empty())
        return std::nullopt;
    return FrontWindow{clientWindowIn(ancestry), window};
}

xcb_window_t X11Workspace::clientWindowIn(const std::vector<xcb_window_t>& ancestry)
{
    // A window manager from before EWMH puts client windows into frames of its own; WM_STATE tells them apart
    // (ICCCM section 4.1.3.1).
    std::vector<xcb_get_property_cookie_t> cookies;
    for (const xcb_window_t window : ancestry)
        cookies.push_back(xcb_get_property(connection_->raw(), 0, window, connection_->atoms().windowState,
                                           XCB_ATOM_ANY, 0, 1));
    xcb_window_t client = ancestry.back();
    for (std::size_t index = 0; index < cookies.size(); ++index)
        if (!unitsOf(connection_->wait(xcb_get_property_reply, cookies[index]).get()).empty())
            client = ancestry[index];
    return client;
}

void X11Workspace::openURL(std::string_view url)
{
    const QByteArray desktops = qgetenv("XDG_CURRENT_DESKTOP");
    if (const auto command = commandToOpen(url, desktops.toStdString()))
        launcher_(*command);
}

void X11Workspace::launchDetached(const OpenCommand& command)
{
    QStringList arguments;
    for (const std::string& argument : command.arguments)
        arguments.append(QString::fromStdString(argument));
    QProcess::startDetached(QString::fromStdString(command.program), arguments);
}

} // namespace tessel
