#include "Windows/WindowTheme.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

namespace tessel {

WindowTheme::WindowTheme(Appearance& appearance)
    : appearance_(appearance)
    , colors_(windowColors(appearance.settings(), QGuiApplication::palette()))
    , controlColors_(tessel::controlColors(colors_, colorScheme()))
    , observation_(appearance.observe([this] { update(); }))
{
    qGuiApp->installEventFilter(this);
}

bool WindowTheme::eventFilter(QObject* object, QEvent* event)
{
    if (object == qGuiApp && event->type() == QEvent::ApplicationPaletteChange)
        update();
    return false;
}

void WindowTheme::update()
{
    colors_ = windowColors(appearance_.settings(), QGuiApplication::palette());
    controlColors_ = tessel::controlColors(colors_, colorScheme());
    emit didChange();
}

} // namespace tessel
