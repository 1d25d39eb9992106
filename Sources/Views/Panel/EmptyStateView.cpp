#include "Panel/EmptyStateView.h"

#include "Panel/PanelFonts.h"
#include "Panel/PanelLabel.h"
#include "Panel/PanelStyle.h"

namespace tessel {

using namespace panelStyle;

EmptyStateView::EmptyStateView(const PanelFonts& fonts, QWidget* parent)
    : QWidget(parent)
    , fonts_(fonts)
    , title_(new PanelLabel(tr("Clipboard is empty"), fonts.emptyTitle, emptyState::titleOpacity, this))
    , hint_(new PanelLabel(tr("Copy something and it will appear here."), fonts.emptyHint,
                           emptyState::hintOpacity, this))
{
    title_->setAlignment(Qt::AlignCenter);
    hint_->setAlignment(Qt::AlignCenter);
}

void EmptyStateView::resizeEvent(QResizeEvent*)
{
    const int contentHeight =
        fonts_.emptyTitle.lineHeight + emptyState::spacing + fonts_.emptyHint.lineHeight;
    const int top = (height() - contentHeight) / 2;
    title_->setGeometry(0, top, width(), fonts_.emptyTitle.lineHeight);
    hint_->setGeometry(0, top + fonts_.emptyTitle.lineHeight + emptyState::spacing, width(),
                       fonts_.emptyHint.lineHeight);
}

} // namespace tessel
