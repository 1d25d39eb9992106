#include "X11/ScreenPictures.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include "X11/Xwayland.h"

namespace tessel {

namespace {

constexpr std::uint8_t pictureDepth = 32;

/// One picture on its way: the requests that make it are sent at once, and the answer is read later.
class PictureInTheMaking {
public:
    struct Formats {
        PictureFormat screen;
        PictureFormat picture;
    };

    PictureInTheMaking(X11Connection& connection, const Formats& formats, const QRect& rectangle,
                       int reduction)
        : connection_(connection)
        , raw_(connection.raw())
        , formats_(formats)
        , reduction_(reduction)
        , extent_(rectangle.size())
    {
        copyFromScreen(rectangle);
        do {
            halve();
        } while (--stepsLeft_ > 0);
        image_ = xcb_get_image(raw_, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap_, 0, 0,
                               static_cast<std::uint16_t>(extent_.width()),
                               static_cast<std::uint16_t>(extent_.height()), ~0U);
        xcb_free_pixmap(raw_, pixmap_);
    }

    /// What has to be answered before it can be finished.
    xcb_get_image_cookie_t image() const { return image_; }

    /// Empty: the server has refused one of the requests.
    ScreenPicture finish(const xcb_get_image_reply_t* reply)
    {
        // The answers to all that came before are here, too: this waits for nothing.
        bool hasFailed = false;
        for (const auto cookie : drawings_) {
            const X11Reply<xcb_generic_error_t> error(xcb_request_check(raw_, cookie));
            hasFailed = hasFailed || error;
        }
        ScreenPicture picture{{}, reduction_, extent_.width(), extent_.height(), {}};
        const std::size_t count =
            static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
        const std::size_t bytes = count * sizeof(std::uint32_t);
        if (hasFailed || reply == nullptr || reply->depth != pictureDepth ||
            static_cast<std::size_t>(xcb_get_image_data_length(reply)) < bytes)
            return picture;
        picture.pixels.resize(count);
        std::memcpy(picture.pixels.data(), xcb_get_image_data(reply), bytes);
        return picture;
    }

private:
    /// What windows show belongs to the picture, and not only what the root window has behind them.
    void copyFromScreen(const QRect& rectangle)
    {
        pixmap_ = makePixmap(formats_.screen.depth, extent_);
        format_ = formats_.screen.id;
        const auto context = xcb_generate_id(raw_);
        constexpr std::array<std::uint32_t, 2> values = {XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS, 0};
        xcb_create_gc(raw_, context, pixmap_, XCB_GC_SUBWINDOW_MODE | XCB_GC_GRAPHICS_EXPOSURES,
                      values.data());
        drawings_.push_back(xcb_copy_area_checked(
            raw_, connection_.root(), pixmap_, context, static_cast<std::int16_t>(rectangle.x()),
            static_cast<std::int16_t>(rectangle.y()), 0, 0, static_cast<std::uint16_t>(extent_.width()),
            static_cast<std::uint16_t>(extent_.height())));
        xcb_free_gc(raw_, context);
        stepsLeft_ = std::countr_zero(static_cast<unsigned int>(reduction_));
    }

    /// Replaces the pixmap by one of half its extent whose pixels are averages of four: the filter looks at
    /// the corner where they meet. Without a step to do only its format changes.
    void halve()
    {
        const bool isReduced = stepsLeft_ > 0;
        const auto source = makePicture(pixmap_, format_);
        if (isReduced) {
            constexpr xcb_render_fixed_t one = 1 << 16;
            constexpr std::string_view filter = "bilinear";
            xcb_render_set_picture_transform(raw_, source, {2 * one, 0, 0, 0, 2 * one, 0, 0, 0, one});
            xcb_render_set_picture_filter(raw_, source, static_cast<std::uint16_t>(filter.size()),
                                          filter.data(), 0, nullptr);
            extent_ = {(extent_.width() + 1) / 2, (extent_.height() + 1) / 2};
        }
        const auto nextPixmap = makePixmap(pictureDepth, extent_);
        const auto target = makePicture(nextPixmap, formats_.picture.id);
        drawings_.push_back(xcb_render_composite_checked(
            raw_, XCB_RENDER_PICT_OP_SRC, source, XCB_NONE, target, 0, 0, 0, 0, 0, 0,
            static_cast<std::uint16_t>(extent_.width()), static_cast<std::uint16_t>(extent_.height())));
        xcb_render_free_picture(raw_, source);
        xcb_render_free_picture(raw_, target);
        xcb_free_pixmap(raw_, std::exchange(pixmap_, nextPixmap));
        format_ = formats_.picture.id;
    }

    xcb_pixmap_t makePixmap(std::uint8_t depth, const QSize& extent)
    {
        const auto pixmap = xcb_generate_id(raw_);
        drawings_.push_back(xcb_create_pixmap_checked(raw_, depth, pixmap, connection_.root(),
                                                      static_cast<std::uint16_t>(extent.width()),
                                                      static_cast<std::uint16_t>(extent.height())));
        return pixmap;
    }

    /// What lies beyond an edge is like the edge.
    xcb_render_picture_t makePicture(xcb_pixmap_t pixmap, xcb_render_pictformat_t format)
    {
        const auto picture = xcb_generate_id(raw_);
        constexpr std::uint32_t repeat = XCB_RENDER_REPEAT_PAD;
        xcb_render_create_picture(raw_, picture, pixmap, format, XCB_RENDER_CP_REPEAT, &repeat);
        return picture;
    }

    X11Connection& connection_;
    xcb_connection_t* raw_;
    Formats formats_;
    int reduction_;
    int stepsLeft_ = 0;
    QSize extent_;
    xcb_pixmap_t pixmap_ = XCB_NONE;
    xcb_render_pictformat_t format_ = XCB_NONE;
    /// Without them the pixels would be whatever was in the server's memory.
    std::vector<xcb_void_cookie_t> drawings_;
    xcb_get_image_cookie_t image_{};
};

bool givesPictures(const X11Connection& connection)
{
    return connection.isAlive() && connection.extensions().render && !isXwayland(connection) &&
           hasOurByteOrder(connection.raw());
}

} // namespace

ScreenPictures::ScreenPictures(std::shared_ptr<X11Connection> connection)
    : connection_(std::move(connection))
{
    if (givesPictures(*connection_))
        question_ = xcb_render_query_pict_formats(connection_->raw());
}

ScreenPictures::ScreenPictures(std::shared_ptr<X11Connection> connection,
                               const xcb_render_query_pict_formats_reply_t& formats)
    : connection_(std::move(connection))
{
    if (givesPictures(*connection_))
        findFormats(formats);
}

void ScreenPictures::learnFormats()
{
    const auto question = std::exchange(question_, std::nullopt);
    if (!question)
        return;
    if (const auto reply = connection_->wait(xcb_render_query_pict_formats_reply, *question))
        findFormats(*reply);
}

void ScreenPictures::findFormats(const xcb_render_query_pict_formats_reply_t& reply)
{
    pictureFormat_ = formatOfColors(reply);
    screenFormat_ = formatOfVisual(reply, connection_->rootVisual());
}

bool ScreenPictures::canTake() const
{
    return connection_->isAlive() && screenFormat_.id != XCB_NONE && pictureFormat_.id != XCB_NONE;
}

std::vector<ScreenPicture> ScreenPictures::take(QPoint origin, std::span<const ScreenPictureRequest> requests)
{
    std::vector<ScreenPicture> pictures(requests.size());
    if (!canTake())
        return pictures;
    std::vector<std::pair<std::size_t, PictureInTheMaking>> inTheMaking;
    for (std::size_t index = 0; index < requests.size(); ++index) {
        const PixelRectangle& wanted = requests[index].rectangle;
        const QRect rectangle =
            QRect(wanted.x, wanted.y, wanted.width, wanted.height).translated(origin).intersected(screen());
        if (rectangle.isEmpty())
            continue;
        const QPoint corner = rectangle.topLeft() - origin;
        pictures[index].rectangle = {corner.x(), corner.y(), rectangle.width(), rectangle.height()};
        inTheMaking.emplace_back(index, PictureInTheMaking(*connection_, {screenFormat_, pictureFormat_},
                                                           rectangle, requests[index].reduction));
    }
    for (auto& [index, making] : inTheMaking) {
        const PixelRectangle rectangle = pictures[index].rectangle;
        pictures[index] = making.finish(connection_->wait(xcb_get_image_reply, making.image()).get());
        pictures[index].rectangle = rectangle;
    }
    return pictures;
}

void ScreenPictures::takeLater(const QRect& rectangle, std::weak_ptr<const void> owner,
                               std::function<void(const ScreenPicture&)> handler)
{
    const QRect visible = rectangle.intersected(screen());
    if (!canTake() || visible.isEmpty())
        return;
    constexpr int unreduced = 1;
    const auto making = std::make_shared<PictureInTheMaking>(
        *connection_, PictureInTheMaking::Formats{screenFormat_, pictureFormat_}, visible, unreduced);
    // It is finished whether or not somebody still wants it: the library would else keep what was refused.
    connection_->whenReplied<xcb_get_image_reply_t>(
        making->image(), making,
        [making, owner = std::move(owner), handler = std::move(handler)](const auto* reply) {
            const ScreenPicture picture = making->finish(reply);
            if (!owner.expired())
                handler(picture);
        });
    connection_->flush();
}

} // namespace tessel
