#include "Support/ScrollPosition.h"

#include <algorithm>

namespace tessel {

double ScrollPosition::maximum() const
{
    return std::max(0.0, contentHeight_ - viewHeight_);
}

void ScrollPosition::setViewHeight(double height)
{
    viewHeight_ = height;
    scrollTo(offset_);
}

void ScrollPosition::setContentHeight(double height)
{
    contentHeight_ = height;
    scrollTo(offset_);
}

void ScrollPosition::scrollTo(double offset)
{
    offset_ = std::clamp(offset, 0.0, maximum());
}

void ScrollPosition::reveal(const ListLayout::Extent& extent)
{
    if (extent.bottom() > offset_ + viewHeight_)
        scrollTo(extent.bottom() - viewHeight_);
    if (extent.top < offset_)
        scrollTo(extent.top);
}

} // namespace tessel
