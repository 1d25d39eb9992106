#include "X11/PictureFormats.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <span>

namespace tessel {

namespace {

constexpr std::uint8_t colorDepth = 32;

bool isOfColors(const xcb_render_pictforminfo_t& format)
{
    constexpr std::uint16_t byte = 0xFF;
    const xcb_render_directformat_t& places = format.direct;
    return format.type == XCB_RENDER_PICT_TYPE_DIRECT && format.depth == colorDepth &&
           places.alpha_mask == byte && places.alpha_shift == 24 && places.red_mask == byte &&
           places.red_shift == 16 && places.green_mask == byte && places.green_shift == 8 &&
           places.blue_mask == byte && places.blue_shift == 0;
}

} // namespace

PictureFormat formatOfVisual(const xcb_render_query_pict_formats_reply_t& reply, xcb_visualid_t visual)
{
    for (auto screens = xcb_render_query_pict_formats_screens_iterator(&reply); screens.rem > 0;
         xcb_render_pictscreen_next(&screens)) {
        for (auto depths = xcb_render_pictscreen_depths_iterator(screens.data); depths.rem > 0;
             xcb_render_pictdepth_next(&depths)) {
            const std::span visuals(
                xcb_render_pictdepth_visuals(depths.data),
                static_cast<std::size_t>(xcb_render_pictdepth_visuals_length(depths.data)));
            for (const xcb_render_pictvisual_t& candidate : visuals) {
                if (candidate.visual == visual)
                    return {candidate.format, depths.data->depth};
            }
        }
    }
    return {};
}

PictureFormat formatOfColors(const xcb_render_query_pict_formats_reply_t& reply)
{
    const std::span formats(xcb_render_query_pict_formats_formats(&reply),
                            static_cast<std::size_t>(xcb_render_query_pict_formats_formats_length(&reply)));
    const auto found = std::ranges::find_if(formats, isOfColors);
    return found == formats.end() ? PictureFormat{} : PictureFormat{found->id, found->depth};
}

bool hasOurByteOrder(xcb_connection_t* connection)
{
    const bool isLittle = xcb_get_setup(connection)->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    return isLittle == (std::endian::native == std::endian::little);
}

} // namespace tessel
