#include "Desktop/StatusNotifier/StatusNotifierItemAdaptor.h"

#include <QtDBus/QDBusMetaType>

#include <utility>

namespace tessel {

StatusNotifierItemAdaptor::StatusNotifierItemAdaptor(QObject* parent, Contents contents)
    : QDBusAbstractAdaptor(parent)
    , contents_(std::move(contents))
{
    qDBusRegisterMetaType<StatusPixmap>();
    qDBusRegisterMetaType<StatusPixmaps>();
    qDBusRegisterMetaType<StatusToolTip>();
}

void StatusNotifierItemAdaptor::Activate(int x, int y)
{
    const auto open = [this, x, y] { contents_.openMenu(x, y); };
    QMetaObject::invokeMethod(this, open, Qt::QueuedConnection);
}

void StatusNotifierItemAdaptor::ContextMenu(int x, int y)
{
    Activate(x, y);
}

void StatusNotifierItemAdaptor::SecondaryActivate(int x, int y)
{
    Activate(x, y);
}

void StatusNotifierItemAdaptor::Scroll(int /*delta*/, const QString& /*orientation*/) {}

} // namespace tessel
