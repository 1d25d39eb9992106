#include "Windows/WindowTheme.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

namespace tessel {

WindowTheme::WindowTheme(Appearance& appearance)
    : appearance_(appearance)
    , settings_(appearance.settings())
    , colors_(windowColors(settings_, QGuiApplication::palette()))
    , controlColors_(tessel::controlColors(colors_, settings_.colorScheme))
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
    const AppearanceSettings& settings = appearance_.settings();
    const WindowColors colors = windowColors(settings, QGuiApplication::palette());
    // One change of the desktop's look may be told as that of the settings and as that of the palette.
    if (settings == settings_ && colors == colors_)
        return;
    settings_ = settings;
    colors_ = colors;
    controlColors_ = tessel::controlColors(colors_, settings_.colorScheme);
    emit didChange();
}

} // namespace tessel
