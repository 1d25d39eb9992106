#include "Windows/Controls/FocusRing.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QApplication>

#include "Support/ContinuousCorners.h"
#include "Windows/Controls/ControlColors.h"
#include "Windows/WindowTheme.h"

namespace tessel {

FocusRing::FocusRing(QWidget* view, const WindowTheme& theme)
    : QWidget(view)
    , theme_(theme)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

void FocusRing::follow(QWidget* control)
{
    for (const QPointer<QWidget>& widget : watched_) {
        if (widget)
            widget->removeEventFilter(this);
    }
    watched_.clear();
    const bool isInView = control != nullptr && parentWidget()->isAncestorOf(control);
    control_ = isInView && dynamic_cast<HasFocusOutline*>(control) != nullptr ? control : nullptr;
    for (QWidget* widget = control_; widget != nullptr && widget != parentWidget();
         widget = widget->parentWidget()) {
        widget->installEventFilter(this);
        watched_.emplace_back(widget);
    }
    place();
}

bool FocusRing::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Paint: // A part of the control may have moved, for instance a slider's knob.
        if (object == control_)
            place();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        place();
        break;
    default:
        break;
    }
    return false;
}

void FocusRing::place()
{
    const auto* outlined = dynamic_cast<const HasFocusOutline*>(control_.data());
    if (outlined == nullptr || !control_->isVisibleTo(parentWidget()))
        return hide();
    const auto [inControl, radius] = outlined->focusOutline();
    const QRectF rectangle = inControl.translated(control_->mapTo(parentWidget(), QPoint(0, 0)));
    const QRect geometry =
        rectangle.adjusted(-reach, -reach, reach, reach).toAlignedRect().intersected(visiblePart());
    if (geometry.isEmpty())
        return hide();
    if (!isHidden() && rectangle == outline_.rectangle && geometry == this->geometry())
        return;
    outline_ = {rectangle, radius};
    setGeometry(geometry);
    raise();
    show();
    update();
}

QRect FocusRing::visiblePart() const
{
    QRect part = parentWidget()->rect();
    for (const QWidget* widget = control_; widget != parentWidget(); widget = widget->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(widget->parentWidget()) == nullptr)
            continue;
        const QRect viewport(widget->mapTo(parentWidget(), QPoint(0, 0)), widget->size());
        part = part.intersected(viewport.adjusted(-reach, -reach, reach, reach));
    }
    return part;
}

void FocusRing::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-pos());
    constexpr double half = reach / 2.0;
    painter.strokePath(continuousRoundedRectangle(outline_.rectangle.adjusted(-half, -half, half, half),
                                                  outline_.radius + half),
                       QPen(theme_.controlColors().focusRing, reach));
}

} // namespace tessel
