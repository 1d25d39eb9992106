#include "X11/Selections/PictureHandles.h"

#include "X11/Selections/StoredPNGEncoder.h"

namespace tessel {

bool PictureBitmap::writePNG(const ByteSink& sink) const
{
    StoredPNGEncoder encoder(sink);
    return source_(encoder) && encoder.finish();
}

std::unique_ptr<BitmapImage> PictureTIFF::makeBitmap() const
{
    return std::make_unique<PictureBitmap>(source_);
}

} // namespace tessel
