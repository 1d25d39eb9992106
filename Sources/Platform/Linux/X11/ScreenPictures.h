#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include <QtCore/QPoint>
#include <QtCore/QRect>

#include "ScreenPicture.h"
#include "X11/PictureFormats.h"
#include "X11/X11Connection.h"

namespace tessel {

/// Pictures of what the screen shows, which the server reduces itself (X Rendering Extension): what travels
/// is as small as the result, also where it travels far.
class ScreenPictures {
public:
    /// Asks the server what pictures it has.
    explicit ScreenPictures(std::shared_ptr<X11Connection> connection);
    /// The server has been asked already, and this is its answer.
    ScreenPictures(std::shared_ptr<X11Connection> connection,
                   const xcb_render_query_pict_formats_reply_t& formats);
    /// Waits for the answer. Before that no picture can be taken.
    void learnFormats();

    /// Takes one picture for each request, whose rectangles count from `origin`: one round trip. None can be
    /// taken on Xwayland, whose root window is empty, and without the extension.
    std::vector<ScreenPicture> take(QPoint origin, std::span<const ScreenPictureRequest> requests);
    /// Takes a picture of this rectangle of the root window without waiting for it, and hands it over when it
    /// is there. Nothing runs once `owner` is gone, nor where no picture can be taken. The picture is empty
    /// when the server has refused.
    void takeLater(const QRect& rectangle, std::weak_ptr<const void> owner,
                   std::function<void(const ScreenPicture&)> handler);

private:
    void findFormats(const xcb_render_query_pict_formats_reply_t& reply);
    bool canTake() const;
    QRect screen() const { return {0, 0, connection_->rootWidth(), connection_->rootHeight()}; }

    std::shared_ptr<X11Connection> connection_;
    std::optional<xcb_render_query_pict_formats_cookie_t> question_;
    /// Of the root window, and of 32 bits with the colours in the places that `ScreenPicture` has them.
    PictureFormat screenFormat_;
    PictureFormat pictureFormat_;
};

} // namespace tessel
