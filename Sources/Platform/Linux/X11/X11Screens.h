#pragma once

#include <memory>
#include <vector>

#include "Screens.h"
#include "X11/DockStruts.h"
#include "X11/ScreenLayout.h"
#include "X11/X11Connection.h"

namespace tessel {

/// The screens in the view toolkit's order and scale, less the struts of docks. The toolkit follows the
/// monitors of RandR 1.5, and its primary screen, which is the main screen here, is the primary monitor or
/// else the first.
class X11Screens : public Screens {
public:
    X11Screens(std::shared_ptr<X11Connection> connection, std::shared_ptr<WindowManager> windowManager);

    std::vector<Screen> screens() const override;
    std::optional<Screen> mainScreen() const override;
    /// One round trip.
    Point mouseLocation() const override;

    /// A location in pixels of the root window, as the screen there has it in points.
    static Point pointOfPixel(double x, double y);

private:
    std::shared_ptr<X11Connection> connection_;
    DockStruts struts_;
};

} // namespace tessel
