#include "X11/Selections/StoredPNGEncoder.h"

#include <png.h>

namespace tessel {

namespace {

/// Bytes of pixels in one chunk: large pieces for the hash, small against a picture.
constexpr png_size_t chunkBytes = 64 * 1024;
constexpr int noCompression = 0;

} // namespace

/// The calls into libpng, each in a function of its own that holds nothing to be destroyed: libpng reports
/// errors by jumping back to it.
struct StoredPNGEncoder::Encoding {
    explicit Encoding(const ByteSink& sink)
        : png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, &onError, &onWarning))
        , info(png ? png_create_info_struct(png) : nullptr)
    {
        if (png)
            png_set_write_fn(png, const_cast<ByteSink*>(&sink), &onBytes, &onFlush);
    }
    ~Encoding() { png_destroy_write_struct(&png, &info); }
    Encoding(const Encoding&) = delete;
    Encoding& operator=(const Encoding&) = delete;

    bool begin(const PictureShape& shape)
    {
        if (!info || setjmp(png_jmpbuf(png)) != 0)
            return false;
        constexpr int bitsPerByte = 8;
        png_set_user_limits(png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
        png_set_IHDR(png, info, shape.width, shape.height,
                     bitsPerByte * static_cast<int>(shape.bytesPerSample), PNG_COLOR_TYPE_RGB_ALPHA,
                     PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_set_compression_level(png, noCompression);
        png_set_compression_buffer_size(png, chunkBytes);
        png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
        png_write_info(png, info);
        return true;
    }
    bool row(const std::byte* pixels)
    {
        if (setjmp(png_jmpbuf(png)) != 0)
            return false;
        png_write_row(png, reinterpret_cast<png_const_bytep>(pixels));
        return true;
    }
    bool finish()
    {
        if (setjmp(png_jmpbuf(png)) != 0)
            return false;
        png_write_end(png, nullptr);
        return true;
    }

    static void onBytes(png_structp png, png_bytep bytes, png_size_t count)
    {
        (*static_cast<const ByteSink*>(png_get_io_ptr(png)))(
            {reinterpret_cast<const std::byte*>(bytes), count});
    }
    static void onFlush(png_structp) {}
    [[noreturn]] static void onError(png_structp png, png_const_charp) { png_longjmp(png, 1); }
    static void onWarning(png_structp, png_const_charp) {}

    png_structp png;
    png_infop info;
};

StoredPNGEncoder::StoredPNGEncoder(const ByteSink& sink)
    : sink_(sink)
{}

StoredPNGEncoder::~StoredPNGEncoder() = default;

bool StoredPNGEncoder::begin(const PictureShape& shape)
{
    encoding_ = std::make_unique<Encoding>(sink_);
    return encoding_->begin(shape);
}

bool StoredPNGEncoder::row(std::span<const std::byte> pixels)
{
    return encoding_->row(pixels.data());
}

bool StoredPNGEncoder::finish()
{
    return encoding_ && encoding_->finish();
}

} // namespace tessel
