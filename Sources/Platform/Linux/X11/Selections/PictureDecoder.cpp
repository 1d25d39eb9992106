#include "X11/Selections/PictureDecoder.h"

#include <QImageReader>

#include "X11/Selections/PNGRowDecoder.h"
#include "X11/Selections/ToolkitSilence.h"
#include "X11/Selections/WholePictureDecoder.h"

namespace tessel {

std::optional<PictureDecoder::Kind> PictureDecoder::kindOf(std::string_view encoded)
{
    using namespace std::string_view_literals;
    if (encoded.starts_with("\x89PNG\r\n\x1A\n"sv))
        return Kind::png;
    if (encoded.starts_with("\xFF\xD8\xFF"sv))
        return Kind::jpeg;
    if (encoded.starts_with("BM"sv))
        return Kind::bmp;
    if (encoded.starts_with("II*\0"sv) || encoded.starts_with("MM\0*"sv))
        return Kind::tiff;
    if (encoded.starts_with("RIFF"sv) && encoded.substr(0, 12).ends_with("WEBP"sv))
        return Kind::webp;
    if (encoded.starts_with("GIF8"sv))
        return Kind::gif;
    if (encoded.starts_with("\0\0\1\0"sv))
        return Kind::ico;
    if (encoded.starts_with("/* XPM"sv))
        return Kind::xpm;
    const bool isNetpbm = encoded.size() > 2 && encoded[0] == 'P' && encoded[1] >= '1' && encoded[1] <= '6';
    if (isNetpbm && (encoded[2] == '\n' || encoded[2] == ' ' || encoded[2] == '\t' || encoded[2] == '\r'))
        return Kind::ppm;
    return std::nullopt;
}

std::optional<PictureShape> PictureDecoder::shapeOf(std::string_view encoded)
{
    const auto kind = kindOf(encoded);
    if (!kind)
        return std::nullopt;
    return *kind == Kind::png ? PNGRowDecoder::shapeOf(encoded)
                              : WholePictureDecoder::shapeOf(encoded, *kind);
}

bool PictureDecoder::decode(std::string_view encoded, PictureRowSink& sink, const Breath& breath)
{
    const auto kind = kindOf(encoded);
    if (!kind)
        return false;
    return *kind == Kind::png ? PNGRowDecoder::decode(encoded, sink, breath)
                              : WholePictureDecoder::decode(encoded, *kind, sink, breath);
}

void PictureDecoder::prepareToolkit()
{
    constexpr std::size_t bytesPerMegabyte = std::size_t{1} << 20;
    QImageReader::setAllocationLimit(static_cast<int>(mostWholeBytes / bytesPerMegabyte));
    ToolkitSilence::prepare();
}

} // namespace tessel
