#include "X11/X11Application.h"

#include <cstdlib>
#include <utility>

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaObject>

namespace tessel {

namespace {

/// Asking every window to close first, as quit() does, would leave it to each of them to say no.
void endLoop()
{
    if (auto* application = QCoreApplication::instance())
        QMetaObject::invokeMethod(
            application, [] { QCoreApplication::exit(EXIT_SUCCESS); }, Qt::QueuedConnection);
}

} // namespace

X11Application::X11Application(std::shared_ptr<X11Connection> connection,
                               std::shared_ptr<WindowManager> windowManager,
                               std::shared_ptr<ToolkitWindows> toolkitWindows,
                               std::shared_ptr<X11NativeWindows> nativeWindows)
    : connection_(std::move(connection))
    , windowManager_(std::move(windowManager))
    , toolkitWindows_(std::move(toolkitWindows))
    , nativeWindows_(std::move(nativeWindows))
    , isActive_(hasActiveWindow())
{
    activeWindow_ = windowManager_->observeActiveWindow([this] { update(); });
    focus_ = toolkitWindows_->observeFocus([this] { update(); });
}

void X11Application::activate(IgnoringOtherApps)
{
    const auto& windows = toolkitWindows_->shownWindows();
    if (windows.empty())
        return;
    // What was lost before is about to be regained.
    confirmation_.reset();
    nativeWindows_->makeKeyAndOrderFront(NativeWindowHandle{windows.back()});
}

void X11Application::terminate()
{
    if (!std::exchange(isEnding_, true))
        endLoop();
}

Token X11Application::observeActivity(std::function<void()> didChange)
{
    return observers_.add(std::move(didChange));
}

bool X11Application::hasActiveWindow() const
{
    // A window manager moves the focus first and announces the active window after it, in either direction:
    // either of the two is enough.
    const auto focused = toolkitWindows_->focusedWindow();
    // The focus of a window that is hidden already may be announced late.
    if (focused && toolkitWindows_->isShown(*focused))
        return true;
    // With no window left to activate, openbox goes on announcing one that is gone.
    const auto active = windowManager_->activeWindow();
    return active && toolkitWindows_->isShown(*active);
}

void X11Application::update()
{
    const bool isActive = hasActiveWindow();
    if (isActive == isActive_)
        return;
    // Without a window there is nothing to be confirmed, and a later answer would be about the next window.
    if (isActive || toolkitWindows_->shownWindows().empty() || !connection_->isAlive())
        return adopt(isActive);
    // News of an earlier loss may overtake a window on its way to the screen.
    if (!nativeWindows_->isAboutToTakeFocus())
        confirmInactive();
}

void X11Application::confirmInactive()
{
    confirmation_ = std::make_shared<char>();
    connection_->whenReplied<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus(connection_->raw()), confirmation_, [this](const auto* reply) {
            const bool hasFocus = reply != nullptr && toolkitWindows_->owns(reply->focus);
            // With the focus in another window of ours its own event is on the way.
            if (!hasFocus && !hasActiveWindow())
                adopt(false);
        });
    connection_->flush();
}

void X11Application::adopt(bool isActive)
{
    if (isActive == isActive_)
        return;
    isActive_ = isActive;
    observers_.tell();
}

} // namespace tessel
