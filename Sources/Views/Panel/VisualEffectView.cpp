#include "Panel/VisualEffectView.h"

#include <utility>

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include "Panel/PanelStyle.h"
#include "Support/DevicePixels.h"
#include "Support/PaintedBeneath.h"

namespace tessel {

VisualEffectView::VisualEffectView(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

template <class Value>
void VisualEffectView::set(Value& property, const Value& value)
{
    if (value == property)
        return;
    property = value;
    picture_ = {};
    update();
}

void VisualEffectView::setMaterial(VisualEffectMaterial material)
{
    set(material_, material);
    if (effect_)
        effect_->setMaterial(material);
}

void VisualEffectView::setBlendingMode(VisualEffectBlendingMode blendingMode)
{
    set(blendingMode_, blendingMode);
    if (effect_)
        effect_->setBlendingMode(blendingMode);
}

void VisualEffectView::setState(VisualEffectState state)
{
    set(state_, state);
    if (effect_)
        effect_->setState(state);
}

void VisualEffectView::leaveDrawingTo(std::unique_ptr<VisualEffect> effect)
{
    effect_ = std::move(effect);
    update();
}

void VisualEffectView::setWindowBlending(WindowBlending windowBlending)
{
    set(windowBlending_, windowBlending);
}

void VisualEffectView::setBackdrop(std::shared_ptr<const Backdrop> backdrop)
{
    set(backdrop_, backdrop);
}

bool VisualEffectView::isActive() const
{
    return state_ == VisualEffectState::active ||
           (state_ == VisualEffectState::followsWindowActiveState && isActiveWindow());
}

MaterialColor VisualEffectView::color() const
{
    using namespace panelStyle::material;
    const QColor base = material_ == VisualEffectMaterial::hudWindow ? QColor(red, green, blue)
                                                                     : palette().color(QPalette::Window);
    return {base, opacity};
}

QRect VisualEffectView::deviceRectangle() const
{
    const double ratio = devicePixelRatioF();
    const QRectF inWindow(mapTo(window(), QPoint()), size());
    return QRectF(inWindow.topLeft() * ratio, inWindow.size() * ratio).toAlignedRect();
}

const QImage& VisualEffectView::pictureOfBackdrop()
{
    const QRect rectangle = deviceRectangle();
    if (picture_.isNull() || pictureRectangle_ != rectangle) {
        pictureRectangle_ = rectangle;
        picture_ = backdrop_->under(color(), rectangle);
        picture_.setDevicePixelRatio(devicePixelRatioF());
    }
    return picture_;
}

void VisualEffectView::paintEvent(QPaintEvent* event)
{
    if (effect_)
        return;
    QPainter painter(this);
    if (!isActive())
        return painter.fillRect(event->rect(), color().base);
    if (blendingMode_ == VisualEffectBlendingMode::withinWindow) {
        // A part that changes shows through blurred beyond its edges. What is painted then may be a part
        // again, where the view is clipped.
        repaintsWhole_ = !repaintsWhole_ && event->rect() != rect();
        if (repaintsWhole_)
            update();
        return paintWithinWindow(painter);
    }
    if (backdrop_)
        return painter.drawImage(QPointF(), pictureOfBackdrop());
    const bool shinesThrough = windowBlending_ == WindowBlending::translucent;
    painter.fillRect(event->rect(), shinesThrough ? color().translucent() : color().opaque());
}

void VisualEffectView::paintWithinWindow(QPainter& painter)
{
    const double ratio = devicePixelRatioF();
    QImage beneath = paintedBeneath(*this);
    const int reduction = backdropReduction(ratio);
    const QSize reduced((beneath.width() + reduction - 1) / reduction,
                        (beneath.height() + reduction - 1) / reduction);
    const Backdrop backdrop(beneath.scaled(reduced, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), {},
                            reduction, panelStyle::material::blurDeviation * ratio);
    QImage picture = backdrop.under(color(), beneath.rect());
    picture.setDevicePixelRatio(ratio);
    painter.drawImage(QPointF(), picture);
}

} // namespace tessel
