#include "Windows/ChromelessWindow.h"

#include <QtCore/QEvent>
#include <QtWidgets/QVBoxLayout>

#include "NativeWindows.h"
#include "Support/ApplicationIcon.h"
#include "Support/DevicePixels.h"
#include "Support/NativeHandle.h"
#include "Support/RoundedRegion.h"
#include "Windows/AnimatedBackground.h"

namespace tessel {

ChromelessWindow::ChromelessWindow(const QString& title, QWidget* view, QSize size, const WindowTheme& theme,
                                   NativeWindows& nativeWindows)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
    , nativeWindows_(nativeWindows)
    , background_(new AnimatedBackground(view, theme))
{
    // Of a window that could be translucent the X server never says that others cover it.
    setAttribute(Qt::WA_TranslucentBackground, nativeWindows.blendsTranslucentWindows());
    setWindowTitle(title);
    setWindowIcon(applicationIcon());
    setFixedSize(size);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(background_, 0, Qt::AlignVCenter);
    background_->installEventFilter(this);
}

bool ChromelessWindow::event(QEvent* event)
{
    const bool isHandled = QWidget::event(event);
    // Another screen may have another scale.
    if (event->type() == QEvent::ScreenChangeInternal)
        cutToBackground();
    return isHandled;
}

bool ChromelessWindow::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        cutToBackground();
    return false;
}

void ChromelessWindow::showEvent(QShowEvent*)
{
    blend();
    blendingChange_ = nativeWindows_.observeBlending([this] { blend(); });
    background_->setCovered(false);
    occlusion_ = nativeWindows_.observeOcclusion(
        handleOf(*this), [this](bool isCovered) { background_->setCovered(isCovered); });
}

void ChromelessWindow::hideEvent(QHideEvent*)
{
    occlusion_.reset();
    blendingChange_.reset();
}

void ChromelessWindow::blend()
{
    const bool canBlend = testAttribute(Qt::WA_TranslucentBackground);
    blending_ = canBlend && nativeWindows_.blendsTranslucentWindows() ? WindowBlending::translucent
                                                                      : WindowBlending::opaque;
    background_->setWindowBlending(blending_);
    cutToBackground();
}

void ChromelessWindow::cutToBackground()
{
    if (!isVisible())
        return;
    constexpr int any = 1;
    constexpr int half = 128;
    const double ratio = devicePixelRatioF();
    const QRect pixels = nearestPixels(background_->geometry(), ratio);
    PixelRegion shape = roundedRegion(pixels.size(), AnimatedBackground::cornerRadius * ratio,
                                      blending_ == WindowBlending::translucent ? any : half);
    for (PixelRectangle& part : shape) {
        part.x += pixels.x();
        part.y += pixels.y();
    }
    nativeWindows_.cutToShape(handleOf(*this), shape);
}

} // namespace tessel
