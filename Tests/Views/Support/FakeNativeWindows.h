#pragma once

#include <functional>
#include <vector>

#include "NativeWindows.h"

namespace tessel::test {

/// A window system that notes what it is asked for. It shows nothing behind windows unless a test paints it.
class FakeNativeWindows final : public NativeWindows {
public:
    explicit FakeNativeWindows(bool blendsNow = true)
        : blends(blendsNow)
    {}

    bool blends;
    bool blurs = false;
    /// The colour of the screen at a pixel from a window's corner, 0xFFRRGGBB. None: no picture can be taken.
    std::function<std::uint32_t(int x, int y)> screen;
    int picturesTaken = 0;
    PixelRegion blurred;
    PixelRegion shape;

    struct Prepared {
        NativeWindowHandle window;
        PanelTraits traits;
    };
    std::vector<Prepared> prepared;
    std::vector<NativeWindowHandle> madeKey;
    std::vector<NativeWindowHandle> orderedFront;

    void preparePanel(NativeWindowHandle window, const PanelTraits& traits) override
    {
        prepared.push_back({window, traits});
    }
    void makeKeyAndOrderFront(NativeWindowHandle window) override { madeKey.push_back(window); }
    void orderFront(NativeWindowHandle window) override { orderedFront.push_back(window); }
    /// Whoever observes a window's occlusion now, at most one.
    std::function<void(bool isCovered)> tellOcclusion;
    Token observeOcclusion(NativeWindowHandle, std::function<void(bool isCovered)> didChange) override
    {
        tellOcclusion = std::move(didChange);
        return Token([this] { tellOcclusion = nullptr; });
    }
    bool blendsTranslucentWindows() const override { return blends; }
    /// Whoever observes the blending now, at most one.
    std::function<void()> tellBlending;
    Token observeBlending(std::function<void()> didChange) override
    {
        tellBlending = std::move(didChange);
        return Token([this] { tellBlending = nullptr; });
    }
    bool blursBehindWindows() const override { return blurs; }
    void blurBehind(NativeWindowHandle, const PixelRegion& region) override { blurred = region; }
    void cutToShape(NativeWindowHandle, const PixelRegion& region) override { shape = region; }
    std::vector<ScreenPicture> picturesOfScreen(NativeWindowHandle,
                                                std::span<const ScreenPictureRequest> requests) override
    {
        std::vector<ScreenPicture> pictures(requests.size());
        for (std::size_t index = 0; screen && index < requests.size(); ++index) {
            pictures[index] = picture(requests[index]);
            ++picturesTaken;
        }
        return pictures;
    }

private:
    /// One pixel stands for all that are reduced to it.
    ScreenPicture picture(const ScreenPictureRequest& request) const
    {
        const auto& [rectangle, reduction] = request;
        const auto reduced = [reduction](int length) { return (length + reduction - 1) / reduction; };
        ScreenPicture picture{rectangle, reduction, reduced(rectangle.width), reduced(rectangle.height), {}};
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x)
                picture.pixels.push_back(screen(rectangle.x + x * reduction, rectangle.y + y * reduction));
        }
        return picture;
    }
};

} // namespace tessel::test
