#include "Panel/HistoryPanelDescription.h"

namespace tessel {

PanelDescription panelDescription()
{
    constexpr Rect initialContentRect = {{0, 0}, {460, 420}};
    constexpr std::uint64_t borderless = 0;
    constexpr std::uint64_t buffered = 2;
    constexpr int floatingWindowLevel = 3;
    constexpr std::uint64_t canJoinAllSpaces = 0x1;
    constexpr std::uint64_t fullScreenAuxiliary = 0x100;

    using namespace PanelStep;
    return {
        .contentRect = initialContentRect,
        .styleMask = borderless,
        .backingStore = buffered,
        .defersCreation = false,
        .configuration =
            {
                FloatingPanel{true},
                Level{floatingWindowLevel},
                CollectionBehavior{canJoinAllSpaces | fullScreenAuxiliary},
                HasShadow{true},
                MovableByWindowBackground{true},
                Opaque{false},
                ClearBackground{},
                HasShadow{false}, // On and off again: the result is a panel without a window shadow.
                ContentViewController{},
            },
    };
}

} // namespace tessel
