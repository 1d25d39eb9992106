#pragma once

#include <QtWidgets/QProxyStyle>

#include "Panel/VisualEffectView.h"

class QStyleOptionMenuItem;

namespace tessel {

/// Draws a menu as the panel is drawn: light on a dark rounded card, whatever the desktop's colours.
class PanelMenuStyle : public QProxyStyle {
    Q_OBJECT

public:
    enum class Role { ordinary, destructive };

    explicit PanelMenuStyle(WindowBlending blending);

    /// Gives an item the colours of its role.
    static void setRole(QStyleOptionMenuItem& option, Role role);

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contentsSize,
                           const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

private:
    void drawCard(QPainter& painter, const QRect& rectangle) const;
    void drawItem(QPainter& painter, const QStyleOptionMenuItem& item) const;

    WindowBlending blending_;
};

} // namespace tessel
