#pragma once

#include <chrono>

#include "XConnection.h"

namespace tessel::desktop {

/// A place on the screen in pixels, from the top left.
struct Place {
    int x = 0;
    int y = 0;

    bool operator==(const Place&) const = default;
};

enum class PointerButton : std::uint8_t { left = 1, middle = 2, right = 3, wheelUp = 4, wheelDown = 5 };

/// Real pointer movements and clicks, through the XTEST extension.
class Pointer {
public:
    explicit Pointer(XConnection& connection);

    /// Moves the pointer and returns when it is there.
    void moveTo(Place place);
    void press(PointerButton button = PointerButton::left);
    void release(PointerButton button = PointerButton::left);
    void click(PointerButton button = PointerButton::left);
    /// Two clicks with nothing but the server's own work between them.
    void doubleClick(PointerButton button = PointerButton::left);
    Place location() const;

private:
    void fake(std::uint8_t eventType, PointerButton button);
    void request(std::uint8_t eventType, PointerButton button);

    XConnection& connection_;
};

} // namespace tessel::desktop
