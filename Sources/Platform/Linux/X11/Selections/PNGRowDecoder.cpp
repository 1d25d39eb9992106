#include "X11/Selections/PNGRowDecoder.h"

#include <algorithm>
#include <vector>

#include <png.h>

#include "X11/Selections/PictureDecoder.h"

namespace tessel {

namespace {

/// The encoded bytes that are fed at a time.
constexpr std::size_t feedBytes = std::size_t{64} << 10;
/// The memory that one chunk beside the pixels (a text, a colour profile) may take. We look at none of them.
constexpr png_alloc_size_t mostChunkBytes = 8'000'000;

enum class Wanted { shapeOnly, rows };

/// One decoding. libpng reports errors by jumping out of its own functions (`longjmp`), over the callbacks
/// below; those hold nothing that would have to be destroyed when they call into libpng.
class Decoding {
public:
    Decoding(PictureRowSink* sink, const Breath* breath)
        : sink_(sink)
        , breath_(breath)
        , png_(png_create_read_struct(PNG_LIBPNG_VER_STRING, this, &Decoding::onError, &Decoding::onWarning))
        , info_(png_ ? png_create_info_struct(png_) : nullptr)
    {}
    ~Decoding() { png_destroy_read_struct(&png_, &info_, nullptr); }
    Decoding(const Decoding&) = delete;
    Decoding& operator=(const Decoding&) = delete;

    bool run(std::string_view encoded)
    {
        if (!info_ || !prepare())
            return false;
        while (!encoded.empty() && !isComplete_) {
            const std::string_view piece = encoded.substr(0, feedBytes);
            if (!feed(piece))
                return false;
            encoded.remove_prefix(piece.size());
            if (!sink_ && shape_)
                return true;
        }
        return isComplete_;
    }

    const std::optional<PictureShape>& shape() const { return shape_; }

private:
    bool prepare()
    {
        if (setjmp(png_jmpbuf(png_)) != 0)
            return false;
        png_set_chunk_malloc_max(png_, mostChunkBytes);
        // Checksums guard against damage; a picture with a damaged one is as good as cut off.
        png_set_crc_action(png_, PNG_CRC_ERROR_QUIT, PNG_CRC_WARN_DISCARD);
        png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, nullptr, 0);
        png_set_progressive_read_fn(png_, this, &Decoding::onInfo, &Decoding::onRow, &Decoding::onEnd);
        return true;
    }

    bool feed(std::string_view piece)
    {
        if (setjmp(png_jmpbuf(png_)) != 0)
            return false;
        // libpng takes the bytes as its own but only reads them.
        auto* bytes = reinterpret_cast<png_bytep>(const_cast<char*>(piece.data()));
        png_process_data(png_, info_, bytes, piece.size());
        return true;
    }

    void readShape()
    {
        const png_uint_32 width = png_get_image_width(png_, info_);
        const png_uint_32 height = png_get_image_height(png_, info_);
        const int interlace = png_get_interlace_type(png_, info_);
        if (std::uint64_t{width} * height > PictureDecoder::mostPixels)
            png_error(png_, "too large");
        // Whatever it is becomes red, green, blue and alpha.
        png_set_expand(png_);
        png_set_gray_to_rgb(png_);
        constexpr png_uint_32 opaque = 0xFFFF;
        png_set_add_alpha(png_, png_get_bit_depth(png_, info_) == 16 ? opaque : 0xFF, PNG_FILLER_AFTER);
        lastPass_ = png_set_interlace_handling(png_) - 1;
        png_read_update_info(png_, info_);
        PictureShape shape;
        shape.width = width;
        shape.height = height;
        shape.bytesPerSample = png_get_bit_depth(png_, info_) == 16 ? 2 : 1;
        shape_ = shape;
        if (png_get_rowbytes(png_, info_) != shape.bytesPerRow())
            png_error(png_, "unexpected layout");
        isInterlaced_ = interlace != PNG_INTERLACE_NONE;
    }

    bool begin()
    {
        if (!sink_)
            return true;
        if (isInterlaced_ && shape_->bytes() > PictureDecoder::mostWholeBytes)
            return false;
        if (isInterlaced_)
            whole_.resize(shape_->bytes());
        return sink_->begin(*shape_);
    }

    bool takeRow(png_bytep pixels, png_uint_32 number, int pass)
    {
        hasLastRow_ = hasLastRow_ || (number + 1 == shape_->height && pass == lastPass_);
        if (!sink_ || !pixels)
            return true;
        if (isInterlaced_) {
            png_progressive_combine_row(png_, wholeRow(number), pixels);
            return breathe();
        }
        return sink_->row({reinterpret_cast<const std::byte*>(pixels), shape_->bytesPerRow()}) && breathe();
    }

    bool end()
    {
        isComplete_ = hasLastRow_;
        for (png_uint_32 number = 0; isInterlaced_ && isComplete_ && sink_ && number < shape_->height;
             ++number) {
            if (!sink_->row({reinterpret_cast<const std::byte*>(wholeRow(number)), shape_->bytesPerRow()}) ||
                !breathe())
                return false;
        }
        return true;
    }

    png_bytep wholeRow(png_uint_32 number) { return whole_.data() + number * shape_->bytesPerRow(); }

    bool breathe()
    {
        bytesSinceBreath_ += shape_->bytesPerRow();
        if (bytesSinceBreath_ < bytesBetweenBreaths || !*breath_)
            return true;
        bytesSinceBreath_ = 0;
        return (*breath_)();
    }

    static Decoding& of(png_structp png) { return *static_cast<Decoding*>(png_get_progressive_ptr(png)); }
    static void onInfo(png_structp png, png_infop)
    {
        of(png).readShape();
        if (!of(png).begin())
            png_error(png, "not wanted");
    }
    static void onRow(png_structp png, png_bytep pixels, png_uint_32 number, int pass)
    {
        if (!of(png).takeRow(pixels, number, pass))
            png_error(png, "stopped");
    }
    static void onEnd(png_structp png, png_infop)
    {
        if (!of(png).end())
            png_error(png, "stopped");
    }
    [[noreturn]] static void onError(png_structp png, png_const_charp) { png_longjmp(png, 1); }
    static void onWarning(png_structp, png_const_charp) {}

    PictureRowSink* sink_; ///< Null: only the shape is wanted.
    const Breath* breath_;
    png_structp png_;
    png_infop info_;
    std::optional<PictureShape> shape_;
    bool isInterlaced_ = false;
    int lastPass_ = 0;
    bool hasLastRow_ = false;
    bool isComplete_ = false;
    std::vector<png_byte> whole_; ///< Of an interlaced picture, whose rows come in seven passes.
    std::size_t bytesSinceBreath_ = 0;
};

} // namespace

std::optional<PictureShape> PNGRowDecoder::shapeOf(std::string_view encoded)
{
    const Breath never;
    Decoding decoding(nullptr, &never);
    if (!decoding.run(encoded))
        return std::nullopt;
    return decoding.shape();
}

bool PNGRowDecoder::decode(std::string_view encoded, PictureRowSink& sink, const Breath& breath)
{
    Decoding decoding(&sink, &breath);
    return decoding.run(encoded);
}

} // namespace tessel
