#include "Pixels.h"

namespace tessel::desktop {

namespace {

/// Virtual screens here are 24 bits deep, in 32-bit units of blue, green, red and nothing.
constexpr std::size_t bytesPerPixel = 4;
constexpr std::uint32_t allPlanes = ~std::uint32_t{0};

} // namespace

Pixels::Pixels(XConnection& connection)
    : connection_(connection)
{}

Picture Pixels::read(const Frame& frame) const
{
    const auto cookie = xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, connection_.root(),
                                      static_cast<std::int16_t>(frame.x), static_cast<std::int16_t>(frame.y),
                                      static_cast<std::uint16_t>(frame.width),
                                      static_cast<std::uint16_t>(frame.height), allPlanes);
    const auto image = own(xcb_get_image_reply(connection_.get(), cookie, nullptr));
    if (!image)
        throw DesktopFailure("cannot read the screen at " + frame.description());
    const auto* bytes = xcb_get_image_data(image.get());
    Picture picture{frame.width, frame.height, {}};
    picture.pixels.resize(static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height));
    for (std::size_t index = 0; index < picture.pixels.size(); ++index) {
        const auto* pixel = bytes + index * bytesPerPixel;
        picture.pixels[index] = {pixel[2], pixel[1], pixel[0]};
    }
    return picture;
}

Picture Pixels::readScreen() const
{
    const auto& screen = connection_.screen();
    return read({0, 0, screen.width_in_pixels, screen.height_in_pixels});
}

Colour Pixels::at(int x, int y) const
{
    return read({x, y, 1, 1}).pixels.front();
}

Picture Pixels::readQuietScreen() const
{
    // Longer than a compositor's frame, shorter than the blinking of a cursor.
    constexpr std::chrono::milliseconds quietSpan{150};
    auto picture = readScreen();
    auto quietSince = std::chrono::steady_clock::now();
    connection_.waitUntil("the screen to come to rest", [&] {
        auto next = readScreen();
        if (next != picture) {
            picture = std::move(next);
            quietSince = std::chrono::steady_clock::now();
        }
        return std::chrono::steady_clock::now() - quietSince >= quietSpan;
    });
    return picture;
}

void Pixels::paintBackground(const Picture& tile) const
{
    auto* connection = connection_.get();
    std::vector<std::uint8_t> bytes;
    for (const Colour& colour : tile.pixels)
        bytes.insert(bytes.end(), {colour[2], colour[1], colour[0], 0});
    const auto width = static_cast<std::uint16_t>(tile.width);
    const auto height = static_cast<std::uint16_t>(tile.height);
    const auto depth = connection_.screen().root_depth;
    const auto pixmap = xcb_generate_id(connection);
    const auto context = xcb_generate_id(connection);
    xcb_create_pixmap(connection, depth, pixmap, connection_.root(), width, height);
    xcb_create_gc(connection, context, pixmap, 0, nullptr);
    xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0, depth,
                  static_cast<std::uint32_t>(bytes.size()), bytes.data());
    xcb_free_gc(connection, context);
    xcb_change_window_attributes(connection, connection_.root(), XCB_CW_BACK_PIXMAP, &pixmap);
    // By these names compositors find the picture to put behind the windows; it lives as long as this
    // connection.
    for (const auto* name : {"_XROOTPMAP_ID", "ESETROOT_PMAP_ID"})
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, connection_.root(), connection_.atom(name),
                            XCB_ATOM_PIXMAP, 32, 1, &pixmap);
    xcb_clear_area(connection, 0, connection_.root(), 0, 0, 0, 0);
    connection_.synchronize();
}

} // namespace tessel::desktop
