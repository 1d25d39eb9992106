#include "Panel/PanelHeader.h"

#include <QtWidgets/QStyle>

#include <algorithm>
#include <utility>

#include "Panel/HeaderAction.h"
#include "Panel/PanelFonts.h"
#include "Panel/PanelLabel.h"
#include "Panel/PanelStyle.h"

namespace tessel {

using namespace panelStyle;

PanelHeader::PanelHeader(const PanelFonts& fonts, Actions actions, QWidget* parent)
    : QWidget(parent)
    , fonts_(fonts)
    , title_(new PanelLabel(tr("Clipboard"), fonts.title, header::titleOpacity, this,
                            PanelLabel::Purpose::heading))
    , itemCount_(new PanelLabel({}, fonts.itemCount, header::itemCountOpacity, this))
    , close_(new HeaderAction(tr("Close"), fonts, std::move(actions.onClose), this))
    , clearAll_(new HeaderAction(tr("Clear all"), fonts, std::move(actions.onClearAll), this))
{
    // By the interface's direction, not by that of the text.
    const Qt::Alignment start = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter;
    title_->setAlignment(start);
    itemCount_->setAlignment(start);
}

void PanelHeader::setItemCount(std::size_t count)
{
    itemCount_->setText(tr("%n items", nullptr, static_cast<int>(count)));
}

int PanelHeader::textHeight() const
{
    return fonts_.title.lineHeight + header::textSpacing + fonts_.itemCount.lineHeight;
}

QSize PanelHeader::sizeHint() const
{
    const int content = std::max(textHeight(), close_->sizeHint().height());
    return {card::width, header::topPadding + content + header::bottomPadding};
}

void PanelHeader::resizeEvent(QResizeEvent*)
{
    const int contentHeight = height() - header::topPadding - header::bottomPadding;
    const auto place = [this](QWidget& widget, const QRect& fromLeftToRight) {
        widget.setGeometry(QStyle::visualRect(layoutDirection(), rect(), fromLeftToRight));
    };
    int right = width() - header::horizontalPadding;
    for (HeaderAction* action : {clearAll_, close_}) {
        const QSize size = action->sizeHint();
        const int top = header::topPadding + (contentHeight - size.height()) / 2;
        place(*action, {QPoint(right - size.width(), top), size});
        right -= size.width() + header::spacing;
    }
    const int textWidth = right - header::horizontalPadding;
    const int textTop = header::topPadding + (contentHeight - textHeight()) / 2;
    place(*title_, {header::horizontalPadding, textTop, textWidth, fonts_.title.lineHeight});
    place(*itemCount_, {header::horizontalPadding, textTop + fonts_.title.lineHeight + header::textSpacing,
                        textWidth, fonts_.itemCount.lineHeight});
}

} // namespace tessel
