#pragma once

#include <vector>

#include "NativeWindows.h"

namespace tessel::test {

/// A window system that notes what it is asked for.
class FakeNativeWindows final : public NativeWindows {
public:
    bool blends = true;

    struct Prepared {
        NativeWindowHandle window;
        PanelTraits traits;
    };
    std::vector<Prepared> prepared;
    std::vector<NativeWindowHandle> madeKey;

    void preparePanel(NativeWindowHandle window, const PanelTraits& traits) override
    {
        prepared.push_back({window, traits});
    }
    void makeKeyAndOrderFront(NativeWindowHandle window) override { madeKey.push_back(window); }
    bool blendsTranslucentWindows() const override { return blends; }
};

} // namespace tessel::test
