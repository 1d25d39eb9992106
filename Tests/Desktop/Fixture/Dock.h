#pragma once

#include <string>

#include "WindowSearch.h"
#include "XConnection.h"

namespace tessel::desktop {

enum class ScreenEdge { left, right, top, bottom };

/// A client with a window of dock type that reserves what it covers (EWMH, `_NET_WM_STRUT_PARTIAL` and
/// `_NET_WM_STRUT`). It goes with this object.
class Dock {
public:
    /// How it says what it reserves.
    enum class Strut { partial, whole };

    /// `frame` reaches to an edge of its monitor, which lies at that side of the screen. Returns when the
    /// window is on the screen.
    Dock(const std::string& displayName, ScreenEdge edge, const Frame& frame, Strut strut = Strut::partial);

    /// Reserves another frame from now on.
    void reserve(const Frame& frame);
    /// Goes on without reserving anything.
    void releaseStrut();
    xcb_window_t window() const { return window_; }

private:
    void setUnits(std::string_view property, xcb_atom_t type, const std::vector<std::uint32_t>& units);

    XConnection connection_;
    ScreenEdge edge_;
    Strut strut_;
    xcb_window_t window_;
};

} // namespace tessel::desktop
