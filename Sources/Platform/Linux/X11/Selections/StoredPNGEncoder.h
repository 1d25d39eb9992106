#pragma once

#include <memory>

#include "PlatformImage.h"
#include "X11/Selections/PictureRows.h"

namespace tessel {

/// Encodes rows as the one canonical PNG of a picture: red, green, blue and alpha, no filter, nothing
/// compressed, no chunk beside the pixels. Equal pixels give equal bytes, and the bytes cost next to nothing:
/// they are made to be hashed.
class StoredPNGEncoder final : public PictureRowSink {
public:
    /// `sink` must outlive the encoder.
    explicit StoredPNGEncoder(const ByteSink& sink);
    ~StoredPNGEncoder() override;
    StoredPNGEncoder(const StoredPNGEncoder&) = delete;
    StoredPNGEncoder& operator=(const StoredPNGEncoder&) = delete;

    bool begin(const PictureShape& shape) override;
    bool row(std::span<const std::byte> pixels) override;
    /// After the last row. False: the bytes are void.
    bool finish();

private:
    struct Encoding;
    const ByteSink& sink_;
    std::unique_ptr<Encoding> encoding_;
};

} // namespace tessel
