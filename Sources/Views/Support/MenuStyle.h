#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QProxyStyle>

class QMenu;
class QStyleOptionMenuItem;

namespace tessel {

/// Draws a menu on a rounded card, whatever the desktop's style. The colours of its items are those of their
/// palettes: text, highlight and highlighted text. An item that is checked has a check mark before it. A
/// separator is a line like the card's outline.
class MenuStyle : public QProxyStyle {
    Q_OBJECT

public:
    /// The card's colours. An opaque fill needs no compositor: the menu's window is cut to the card's shape.
    struct Card {
        QColor fill;
        QColor outline;
    };

    /// Gives a menu, which has not been shown yet, this style, and the system font in a menu's size.
    static void apply(QMenu& menu, const Card& card);
    /// The distance from the start of a checkable item to its text, in points.
    static int textInset();
    /// The distance from either end of an item to its text, in points.
    static int itemPadding();

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
    explicit MenuStyle(const Card& card);

    void drawCard(QPainter& painter, const QRect& rectangle) const;
    void drawSeparator(QPainter& painter, const QRect& rectangle) const;
    void drawItem(QPainter& painter, const QStyleOptionMenuItem& item) const;

    Card card_;
};

} // namespace tessel
