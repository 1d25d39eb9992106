#include "Windows/SecondaryWindowController.h"

#include <utility>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include "Panel/PanelGeometry.h"
#include "ScreenSpace.h"
#include "Support/NativeHandle.h"
#include "Windows/WindowPlacement.h"

namespace tessel {

SecondaryWindowController::SecondaryWindowController(std::unique_ptr<QWidget, Retirement> window,
                                                     NativeWindows& nativeWindows, const Screens& screens)
    : window_(std::move(window))
    , nativeWindows_(nativeWindows)
    , screens_(screens)
{}

void SecondaryWindowController::showWindow()
{
    if (!std::exchange(isPlaced_, true))
        center();
    if (window_->isMinimized())
        window_->showNormal();
    window_->show();
    nativeWindows_.orderFront(handleOf(*window_));
}

void SecondaryWindowController::center()
{
    const auto screen = screenInUse(screens_.mouseLocation(), screens_.screens(), screens_.mainScreen());
    if (!screen)
        return;
    window_->adjustSize();
    const Size size = {static_cast<double>(window_->width()), static_cast<double>(window_->height())};
    const QRect place = screenSpace::toToolkit({centeredOrigin(size, screen->visibleFrame), size});
    if (QScreen* under = QGuiApplication::screenAt(place.center()))
        window_->setScreen(under);
    window_->move(place.topLeft());
}

} // namespace tessel
