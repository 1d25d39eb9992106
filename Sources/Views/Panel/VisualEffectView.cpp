#include "Panel/VisualEffectView.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include "Panel/PanelStyle.h"

namespace tessel {

VisualEffectView::VisualEffectView(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void VisualEffectView::setMaterial(VisualEffectMaterial material)
{
    if (material == material_)
        return;
    material_ = material;
    update();
}

void VisualEffectView::setBlendingMode(VisualEffectBlendingMode blendingMode)
{
    if (blendingMode == blendingMode_)
        return;
    blendingMode_ = blendingMode;
    update();
}

void VisualEffectView::setState(VisualEffectState state)
{
    if (state == state_)
        return;
    state_ = state;
    update();
}

void VisualEffectView::setWindowBlending(WindowBlending windowBlending)
{
    if (windowBlending == windowBlending_)
        return;
    windowBlending_ = windowBlending;
    update();
}

QColor VisualEffectView::color() const
{
    using namespace panelStyle;
    QColor color = material_ == VisualEffectMaterial::hudWindow
                       ? QColor(material::red, material::green, material::blue)
                       : palette().color(QPalette::Window);
    const bool shinesThrough = blendingMode_ == VisualEffectBlendingMode::withinWindow ||
                               windowBlending_ == WindowBlending::translucent;
    if (shinesThrough)
        color.setAlphaF(static_cast<float>(material::opacity));
    return color;
}

void VisualEffectView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), color());
}

} // namespace tessel
