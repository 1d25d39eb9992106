#include "Updates/ReleaseNotesView.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QScrollBar>

#include <algorithm>

#include "Support/TextStyle.h"
#include "Windows/ContentScrollArea.h"
#include "Windows/ScrollIndicatorView.h"
#include "Windows/WindowLabel.h"

namespace tessel {

namespace {

constexpr int padding = 12; // Points, as the other lengths.
constexpr int indicatorGap = 4;
constexpr int greatestHeight = 190;

} // namespace

ReleaseNotesView::ReleaseNotesView(const QString& notes, const WindowTheme& theme, int width)
    : SectionCard(theme, {.padding = padding})
    , area_(new ContentScrollArea)
{
    auto* text = new WindowLabel(notes, {textStyle::calloutSize}, &WindowColors::primaryText, theme,
                                 WindowLabel::Wrapping::on);
    text->setAlignment((text->alignment() & Qt::AlignHorizontal_Mask) | Qt::AlignTop);
    area_->setContent(text);
    auto* row = new QHBoxLayout;
    row->setSpacing(indicatorGap);
    row->addWidget(area_);
    auto* indicator = new ScrollIndicatorView(*area_, theme, this);
    indicator->setFixedWidth(ScrollIndicatorView::thickness);
    // Its place is kept, so that the text does not move where it appears.
    QSizePolicy policy = indicator->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    indicator->setSizePolicy(policy);
    row->addWidget(indicator);
    content().addLayout(row);

    const int textWidth = width - 2 * padding - indicatorGap - ScrollIndicatorView::thickness;
    area_->setFixedHeight(std::min(text->heightForWidth(textWidth), greatestHeight));
}

bool ReleaseNotesView::scroll(Qt::Key key)
{
    QScrollBar* bar = area_->verticalScrollBar();
    switch (key) {
    case Qt::Key_Up:
        bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
        return true;
    case Qt::Key_Down:
        bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        return true;
    case Qt::Key_PageUp:
        bar->triggerAction(QAbstractSlider::SliderPageStepSub);
        return true;
    case Qt::Key_PageDown:
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
        return true;
    case Qt::Key_Home:
        bar->triggerAction(QAbstractSlider::SliderToMinimum);
        return true;
    case Qt::Key_End:
        bar->triggerAction(QAbstractSlider::SliderToMaximum);
        return true;
    default:
        return false;
    }
}

} // namespace tessel
