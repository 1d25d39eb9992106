#pragma once

#include <cstdint>

#include <xcb/render.h>

namespace tessel {

/// How the pixels of a drawable are to be read (X Rendering Extension).
struct PictureFormat {
    xcb_render_pictformat_t id = XCB_NONE; ///< `XCB_NONE`: the server has none.
    std::uint8_t depth = 0;
};

/// The format of a visual's pixels.
PictureFormat formatOfVisual(const xcb_render_query_pict_formats_reply_t& reply, xcb_visualid_t visual);

/// The format of pixels with 32 bits, 0xAARRGGBB.
PictureFormat formatOfColors(const xcb_render_query_pict_formats_reply_t& reply);

/// True when a server takes and gives pixels in this machine's byte order.
bool hasOurByteOrder(xcb_connection_t* connection);

} // namespace tessel
