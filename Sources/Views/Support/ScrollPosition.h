#pragma once

#include "Panel/ListLayout.h"

namespace tessel {

/// Which part of a content is in view, in points. The content never leaves the view at either end.
class ScrollPosition {
public:
    double offset() const { return offset_; }
    double viewHeight() const { return viewHeight_; }
    double contentHeight() const { return contentHeight_; }
    double maximum() const;
    bool overflows() const { return maximum() > 0; }

    void setViewHeight(double height);
    void setContentHeight(double height);
    void scrollTo(double offset);
    /// Scrolls no further than it takes to have the extent in view; its top wins where it is too large.
    void reveal(const ListLayout::Extent& extent);

private:
    double offset_ = 0;
    double viewHeight_ = 0;
    double contentHeight_ = 0;
};

} // namespace tessel
