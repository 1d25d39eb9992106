#include "Windows/Controls/PopUpButton.h"

#include <QtGui/QActionGroup>
#include <QtGui/QFontMetricsF>
#include <QtGui/QHelpEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolTip>

#include <algorithm>

#include "Support/MenuStyle.h"
#include "Windows/Controls/ControlColors.h"
#include "Windows/Controls/ControlPainting.h"
#include "Windows/WindowTheme.h"

namespace tessel {

namespace {

// In points.
constexpr int controlHeight = 22;
constexpr double cornerRadius = 6;
constexpr int titleInset = 10;
constexpr int indicatorSide = 16;
constexpr int indicatorInset = 3;
constexpr double indicatorCornerRadius = 4;
constexpr int toolTipWidth = 260;

} // namespace

PopUpButton::PopUpButton(const WindowTheme& theme, QWidget* parent)
    : QComboBox(parent)
    , theme_(theme)
    , textStyle_({textStyle::bodySize})
{
    setFont(textStyle_.font);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // An open menu would keep its colours.
    connect(&theme, &WindowTheme::didChange, this, &PopUpButton::hidePopup);
    connect(&theme, &WindowTheme::didChange, this, qOverload<>(&QWidget::update));
}

QSize PopUpButton::sizeHint() const
{
    int widest = 0;
    for (int index = 0; index < count(); ++index) {
        widest = std::max(widest, textStyle_.widthOf(itemText(index)));
    }
    return {titleInset + widest + titleInset + indicatorSide + indicatorInset,
            std::max(controlHeight, textStyle_.lineHeight)};
}

FocusOutline PopUpButton::focusOutline() const
{
    return {rect(), cornerRadius};
}

bool PopUpButton::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QComboBox::event(event);
    showToolTip(static_cast<QHelpEvent*>(event)->globalPos());
    return true;
}

void PopUpButton::showToolTip(const QPoint& globalPosition)
{
    const ControlColors& colors = theme_.controlColors();
    QPalette palette;
    palette.setColor(QPalette::ToolTipBase, colors.menu.fill);
    palette.setColor(QPalette::ToolTipText, colors.text);
    QToolTip::setPalette(palette);
    // The toolkit breaks the lines of rich text alone, and where only a table tells it.
    QToolTip::showText(globalPosition,
                       QStringLiteral("<table width=%1><tr><td>%2</td></tr></table>")
                           .arg(toolTipWidth)
                           .arg(toolTip().toHtmlEscaped()),
                       this);
}

void PopUpButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    const ControlColors& colors = theme_.controlColors();
    paintBezel(painter, rect(), cornerRadius, menu_ ? colors.bezel.pressed : colors.bezel.normal,
               colors.bezelEdge);

    const QRect indicator =
        QStyle::visualRect(layoutDirection(), rect(),
                           {width() - indicatorInset - indicatorSide, (height() - indicatorSide) / 2,
                            indicatorSide, indicatorSide});
    paintBezel(painter, indicator, indicatorCornerRadius, colors.prominent.normal, colors.prominentEdge);
    paintDoubleChevron(painter, indicator, colors.prominentText);

    const double textWidth = QFontMetricsF(font()).horizontalAdvance(currentText());
    const double left = isRightToLeft() ? width() - titleInset - textWidth : titleInset;
    painter.setPen(colors.text);
    painter.drawText(QPointF(left, textStyle_.baselineIn(height())), currentText());
}

void PopUpButton::fillMenu()
{
    auto* choices = new QActionGroup(menu_);
    for (int index = 0; index < count(); ++index) {
        QAction* action = menu_->addAction(itemText(index), this, [this, index] { choose(index); });
        action->setCheckable(true);
        action->setChecked(index == currentIndex());
        choices->addAction(action);
    }
}

void PopUpButton::showPopup()
{
    if (menu_ || count() == 0)
        return;
    menu_ = new QMenu(this);
    menu_->setAttribute(Qt::WA_DeleteOnClose);
    // Else a press on the button, where the menu leaves it uncovered, would close the menu and open it anew.
    menu_->setAttribute(Qt::WA_NoMouseReplay);
    const ControlColors& colors = theme_.controlColors();
    MenuStyle::apply(*menu_, colors.menu);
    QPalette palette;
    palette.setColor(QPalette::Text, colors.text);
    palette.setColor(QPalette::Highlight, colors.prominent.normal);
    palette.setColor(QPalette::HighlightedText, colors.prominentText);
    menu_->setPalette(palette);
    fillMenu();
    connect(menu_, &QMenu::aboutToHide, this, [this] {
        menu_ = nullptr;
        update();
    });

    // The current item's text lies on the button's.
    QAction* current = menu_->actions().value(currentIndex());
    menu_->ensurePolished();
    const QRect item = menu_->actionGeometry(current);
    const int overhang = item.left() + MenuStyle::textInset() - titleInset;
    menu_->setFixedWidth(std::max(menu_->sizeHint().width(), width() + overhang));
    const QPoint place(isRightToLeft() ? width() + overhang - menu_->width() : -overhang,
                       (height() - item.height()) / 2 - item.top());
    menu_->popup(mapToGlobal(place));
    menu_->setActiveAction(current);
    update();
}

void PopUpButton::hidePopup()
{
    if (menu_)
        menu_->close();
}

void PopUpButton::choose(int index)
{
    setCurrentIndex(index);
    emit activated(index);
}

void PopUpButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    showPopup();
}

void PopUpButton::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace tessel
