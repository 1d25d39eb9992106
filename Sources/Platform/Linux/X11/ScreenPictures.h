#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include <QtCore/QPoint>

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
    /// Waits for the answer. Before that no picture can be taken.
    void learnFormats();

    /// Takes one picture for each request, whose rectangles count from `origin`: one round trip. None can be
    /// taken on Xwayland, whose root window is empty, and without the extension.
    std::vector<ScreenPicture> take(QPoint origin, std::span<const ScreenPictureRequest> requests);

private:
    void findFormats(const xcb_render_query_pict_formats_reply_t& reply);
    bool canTake() const { return screenFormat_.id != XCB_NONE && pictureFormat_.id != XCB_NONE; }

    std::shared_ptr<X11Connection> connection_;
    std::optional<xcb_render_query_pict_formats_cookie_t> question_;
    /// Of the root window, and of 32 bits with the colours in the places that `ScreenPicture` has them.
    PictureFormat screenFormat_;
    PictureFormat pictureFormat_;
};

} // namespace tessel
