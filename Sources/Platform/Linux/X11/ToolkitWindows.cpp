#include "X11/ToolkitWindows.h"

#include <algorithm>
#include <utility>

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <xcb/xinput.h>

#include "X11/FocusEvents.h"

namespace tessel {

namespace {

xcb_connection_t* toolkitConnection()
{
    if (qGuiApp == nullptr)
        return nullptr;
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

bool canHaveFocus(const QWindow& window)
{
    const auto type = window.type();
    return type != Qt::Popup && type != Qt::ToolTip && !window.flags().testFlag(Qt::WindowDoesNotAcceptFocus);
}

xcb_window_t idOf(const QWindow& window)
{
    return window.handle() == nullptr ? noWindow : static_cast<xcb_window_t>(window.winId());
}

/// The toolkit counts points from the corner of the screen, which keeps its place in pixels.
QPoint cornerInPixels(const QWindow& window)
{
    const QPointF screen = window.screen()->geometry().topLeft();
    return (screen + (window.position() - screen) * window.devicePixelRatio()).toPoint();
}

} // namespace

ToolkitWindows::ToolkitWindows(std::shared_ptr<X11Connection> connection, std::shared_ptr<UserTime> userTime)
    : connection_(std::move(connection))
    , userTime_(std::move(userTime))
    , raw_(toolkitConnection())
{
    if (raw_ == nullptr)
        return;
    const auto* setup = xcb_get_setup(raw_);
    resourceBase_ = setup->resource_id_base;
    resourceMask_ = setup->resource_id_mask;
    if (const auto* input = xcb_get_extension_data(raw_, &xcb_input_id);
        input != nullptr && input->present != 0)
        inputOpcode_ = input->major_opcode;
    qGuiApp->installEventFilter(this);
    qGuiApp->installNativeEventFilter(this);
}

ToolkitWindows::~ToolkitWindows()
{
    if (raw_ != nullptr && qGuiApp != nullptr)
        qGuiApp->removeNativeEventFilter(this);
}

bool ToolkitWindows::owns(xcb_window_t window) const
{
    return raw_ != nullptr && window != noWindow && (window & ~resourceMask_) == resourceBase_;
}

bool ToolkitWindows::isShown(xcb_window_t window) const
{
    return std::find(shown_.begin(), shown_.end(), window) != shown_.end();
}

void ToolkitWindows::moveToFront(xcb_window_t window)
{
    if (std::erase(shown_, window) != 0)
        shown_.push_back(window);
}

std::optional<QPoint> ToolkitWindows::cornerOf(xcb_window_t window)
{
    for (const QWindow* candidate : QGuiApplication::topLevelWindows()) {
        if (idOf(*candidate) == window)
            return cornerInPixels(*candidate);
    }
    return std::nullopt;
}

Token ToolkitWindows::observeFocus(std::function<void()> didChange)
{
    return focusObservers_.add(std::move(didChange));
}

Token ToolkitWindows::observeShowing(std::function<void(xcb_window_t, QPoint)> willShow)
{
    return showingObservers_.add(std::move(willShow));
}

Token ToolkitWindows::observeMapping(std::function<void(xcb_window_t)> didMap)
{
    return mappingObservers_.add(std::move(didMap));
}

Token ToolkitWindows::observeUnmapping(std::function<void(xcb_window_t)> didUnmap)
{
    return unmappingObservers_.add(std::move(didUnmap));
}

Token ToolkitWindows::observeDestruction(std::function<void(xcb_window_t)> didDestroy)
{
    return destructionObservers_.add(std::move(didDestroy));
}

bool ToolkitWindows::eventFilter(QObject* object, QEvent* event)
{
    const auto type = event->type();
    if ((type != QEvent::Show && type != QEvent::Hide) || !object->isWindowType())
        return false;
    const auto& window = static_cast<const QWindow&>(*object);
    if (type == QEvent::Show)
        windowWillShow(window);
    else
        windowIsHidden(window);
    return false;
}

void ToolkitWindows::windowWillShow(const QWindow& window)
{
    const xcb_window_t id = idOf(window);
    if (id == noWindow || !window.isTopLevel())
        return;
    if (canHaveFocus(window)) {
        std::erase(shown_, id);
        shown_.push_back(id);
    }
    showingObservers_.tell(id, cornerInPixels(window));
}

void ToolkitWindows::windowIsHidden(const QWindow& window)
{
    const xcb_window_t id = idOf(window);
    std::erase(shown_, id);
    // The server says so too, in its time; that must not be taken for a loss of the next window's focus.
    if (focused_ == id)
        focused_.reset();
    focusObservers_.tell();
}

bool ToolkitWindows::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    follow(*static_cast<const xcb_generic_event_t*>(message));
    return false;
}

void ToolkitWindows::follow(const xcb_generic_event_t& event)
{
    switch (eventKind(event)) {
    case XCB_KEY_PRESS:
        return userTime_->note(eventAs<xcb_key_press_event_t>(event).time);
    case XCB_BUTTON_PRESS:
        return userTime_->note(eventAs<xcb_button_press_event_t>(event).time);
    case XCB_GE_GENERIC:
        return followPointer(eventAs<xcb_ge_generic_event_t>(event));
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT:
        return followFocus(eventAs<xcb_focus_in_event_t>(event));
    case XCB_MAP_NOTIFY:
        return mappingObservers_.tell(eventAs<xcb_map_notify_event_t>(event).window);
    case XCB_UNMAP_NOTIFY:
        return unmappingObservers_.tell(eventAs<xcb_unmap_notify_event_t>(event).window);
    case XCB_DESTROY_NOTIFY: {
        const xcb_window_t window = eventAs<xcb_destroy_notify_event_t>(event).window;
        std::erase(shown_, window);
        if (focused_ == window)
            setFocused(std::nullopt);
        return destructionObservers_.tell(window);
    }
    default:
        return;
    }
}

void ToolkitWindows::followPointer(const xcb_ge_generic_event_t& event)
{
    if (inputOpcode_ == 0 || event.extension != inputOpcode_)
        return;
    if (event.event_type == XCB_INPUT_BUTTON_PRESS || event.event_type == XCB_INPUT_TOUCH_BEGIN)
        userTime_->note(reinterpret_cast<const xcb_input_button_press_event_t&>(event).time);
}

void ToolkitWindows::followFocus(const xcb_focus_in_event_t& event)
{
    switch (meaningOfFocusEvent(event)) {
    case FocusMeaning::gained:
        return setFocused(event.event);
    case FocusMeaning::lost:
        if (focused_ == event.event)
            setFocused(std::nullopt);
        return;
    case FocusMeaning::nothing:
        return;
    }
}

void ToolkitWindows::setFocused(std::optional<xcb_window_t> window)
{
    if (focused_ == window)
        return;
    focused_ = window;
    focusObservers_.tell();
}

} // namespace tessel
