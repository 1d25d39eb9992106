// The least that a Qt program can do on a hot key: Super+Shift+V opens a new translucent frameless window
// beside the pointer, of the history panel's size, and closes it again. What the panel's opening time and
// memory are compared with.

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <QtCore/QAbstractNativeEventFilter>

#include <cstdio>
#include <memory>

namespace tessel::desktop {

namespace {

class BareWindow : public QWidget {
public:
    BareWindow()
        : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    {
        setAttribute(Qt::WA_TranslucentBackground);
        setWindowTitle(QStringLiteral("qt-bare-window"));
        resize(460, 550);
        move(QCursor::pos() + QPoint(12, 12));
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 0, 0, 190));
        painter.drawRoundedRect(rect(), 14, 14);
    }
};

xcb_keycode_t keyCodeOfV(xcb_connection_t* connection)
{
    const auto* setup = xcb_get_setup(connection);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    auto* mapping = xcb_get_keyboard_mapping_reply(
        connection, xcb_get_keyboard_mapping(connection, setup->min_keycode, count), nullptr);
    xcb_keycode_t found = 0;
    for (unsigned key = 0; mapping != nullptr && key < count; ++key) {
        if (xcb_get_keyboard_mapping_keysyms(mapping)[key * mapping->keysyms_per_keycode] == XKB_KEY_v)
            found = static_cast<xcb_keycode_t>(setup->min_keycode + key);
    }
    std::free(mapping);
    return found;
}

class HotKeyFilter : public QAbstractNativeEventFilter {
public:
    HotKeyFilter()
        : connection_(qApp->nativeInterface<QNativeInterface::QX11Application>()->connection())
        , keyCode_(keyCodeOfV(connection_))
    {
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
        const auto cookie = xcb_grab_key_checked(connection_, 0, root, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT,
                                                 keyCode_, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        hasFailed_ = xcb_request_check(connection_, cookie) != nullptr;
    }

    bool hasFailed() const { return hasFailed_; }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override
    {
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        if ((event->response_type & 0x7f) != XCB_KEY_PRESS ||
            reinterpret_cast<const xcb_key_press_event_t*>(event)->detail != keyCode_)
            return false;
        QMetaObject::invokeMethod(
            qApp, [this] { toggle(); }, Qt::QueuedConnection);
        return true;
    }

private:
    void toggle()
    {
        if (window_) {
            window_.reset();
            return;
        }
        window_ = std::make_unique<BareWindow>();
        window_->show();
        window_->activateWindow();
    }

    xcb_connection_t* connection_;
    xcb_keycode_t keyCode_;
    bool hasFailed_ = false;
    std::unique_ptr<BareWindow> window_;
};

} // namespace

} // namespace tessel::desktop

int main(int argumentCount, char** arguments)
{
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication application(argumentCount, arguments);
    tessel::desktop::HotKeyFilter filter;
    if (filter.hasFailed())
        return 1;
    application.installNativeEventFilter(&filter);
    std::puts("ready");
    std::fflush(stdout);
    return QApplication::exec();
}
