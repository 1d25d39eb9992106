#pragma once

#include <utility>

#include <QImage>

#include "X11/Selections/LargeBlocks.h"

namespace tessel {

/// An image of the toolkit, which allocates by itself. Its pages go back in slices.
class WholeImage {
public:
    explicit WholeImage(QImage image)
        : image_(std::move(image))
    {}
    ~WholeImage()
    {
        if (image_.isDetached())
            giveBackPages(image_.constBits(), static_cast<std::size_t>(image_.sizeInBytes()));
    }
    WholeImage(const WholeImage&) = delete;
    WholeImage& operator=(const WholeImage&) = delete;

    QImage& operator*() { return image_; }
    QImage* operator->() { return &image_; }
    const QImage& operator*() const { return image_; }
    const QImage* operator->() const { return &image_; }

private:
    QImage image_;
};

} // namespace tessel
