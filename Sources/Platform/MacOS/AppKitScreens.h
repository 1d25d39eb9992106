#pragma once

#include "Screens.h"

namespace tessel {

/// `NSScreen`, and the pointer as `NSEvent` knows it.
class AppKitScreens final : public Screens {
public:
    std::vector<Screen> screens() const override;
    std::optional<Screen> mainScreen() const override;
    Point mouseLocation() const override;
};

} // namespace tessel
