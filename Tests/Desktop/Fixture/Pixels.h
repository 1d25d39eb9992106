#pragma once

#include "Picture.h"
#include "WindowSearch.h"
#include "XConnection.h"

namespace tessel::desktop {

/// What is to be seen on the screen.
class Pixels {
public:
    explicit Pixels(XConnection& connection);

    /// The part of the screen inside `frame`, which must lie on the screen.
    Picture read(const Frame& frame) const;
    Picture readScreen() const;
    /// The whole screen, once nothing on it has changed for a moment: a compositor paints a little later than
    /// the programs.
    Picture readQuietScreen() const;
    Colour at(int x, int y) const;
    /// Paints the empty desktop in one colour.
    void paintBackground(Colour colour) const;
    /// Covers the empty desktop with a picture, again and again where it is smaller than the screen.
    void paintBackground(const Picture& picture) const;

private:
    void write(const Picture& picture, xcb_drawable_t drawable) const;

    XConnection& connection_;
};

} // namespace tessel::desktop
