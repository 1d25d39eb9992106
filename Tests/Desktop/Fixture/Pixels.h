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
    /// Paints the empty desktop with a picture, again and again, or in one colour.
    void paintBackground(const Picture& tile) const;
    void paintBackground(Colour colour) const { paintBackground(Picture{1, 1, {colour}}); }

private:
    XConnection& connection_;
};

} // namespace tessel::desktop
