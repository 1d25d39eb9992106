#pragma once

#include <memory>
#include <vector>

#include "Screens.h"
#include "X11/DockStruts.h"
#include "X11/ScreenSpace.h"
#include "X11/X11Connection.h"

namespace tessel {

/// The screens in the view toolkit's order and scale, less the struts of docks. The main screen is the
/// toolkit's primary screen.
class X11Screens : public Screens {
public:
    explicit X11Screens(std::shared_ptr<X11Connection> connection);

    std::vector<Screen> screens() const override;
    std::optional<Screen> mainScreen() const override;
    /// One round trip.
    Point mouseLocation() const override;

private:
    std::shared_ptr<X11Connection> connection_;
    DockStruts struts_;
};

/// The view toolkit's screens in its order.
std::vector<ScreenLayout> toolkitScreens();
/// The screen whose bottom left corner is the origin of global points. None: there is no screen.
std::optional<ScreenLayout> toolkitMainScreen();

} // namespace tessel
