// What a compositor that blurs shows behind the panel.

#include <algorithm>
#include <array>

#include "ProgramTest.h"

namespace tessel::desktop {

namespace {

class KwinBlurTest : public ProgramTest {
protected:
    KwinBlurTest()
        : ProgramTest({.windowManager = WindowManagerChoice::blurringKwin})
    {}

    /// A desktop window (EWMH) that is red, and green from `edge` on.
    void showDesktop(std::int16_t edge)
    {
        auto& connection = desktop_.connection();
        auto* raw = connection.get();
        const auto [width, height] = desktop_.screen();
        const auto window = [&](std::uint32_t colour, xcb_window_t parent, std::int16_t x) {
            const auto id = xcb_generate_id(raw);
            xcb_create_window(raw, XCB_COPY_FROM_PARENT, id, parent, x, 0, static_cast<std::uint16_t>(width),
                              static_cast<std::uint16_t>(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                              XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &colour);
            return id;
        };
        const auto whole = window(0xFF0000, connection.root(), 0);
        const auto type = connection.atom("_NET_WM_WINDOW_TYPE_DESKTOP");
        xcb_change_property(raw, XCB_PROP_MODE_REPLACE, whole, connection.atom("_NET_WM_WINDOW_TYPE"),
                            XCB_ATOM_ATOM, 32, 1, &type);
        xcb_map_window(raw, window(0x00FF00, whole, edge));
        xcb_map_window(raw, whole);
        connection.waitUntil("the desktop", [&] {
            return desktop_.pixels().at(edge - 1, 500) == Colour{255, 0, 0} &&
                   desktop_.pixels().at(edge, 500) == Colour{0, 255, 0};
        });
    }

    /// Each column of a part of the screen, averaged: compositors add a little noise.
    std::vector<std::array<double, 3>> columns(const Frame& part)
    {
        const Picture picture = desktop_.pixels().read(part);
        std::vector<std::array<double, 3>> averages(static_cast<std::size_t>(picture.width));
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x) {
                for (std::size_t channel = 0; channel < 3; ++channel)
                    averages[static_cast<std::size_t>(x)][channel] +=
                        static_cast<double>(picture.at(x, y)[channel]) / picture.height;
            }
        }
        return averages;
    }
};

TEST_F(KwinBlurTest, TheDesktopShowsThroughThePanelWithoutItsEdges)
{
    desktop_.connection().waitUntil("kwin to offer blur", [this] {
        return desktop_.connection()
            .propertyBytes(desktop_.connection().root(), "_KDE_NET_WM_BLUR_BEHIND_REGION")
            .has_value();
    });
    restartProgramWith(R"({"tesselclipboard.panelTintOpacity": 0.1})");
    showDesktop(300);
    desktop_.pointer().moveTo({60, 60});
    const auto panel = program_->openPanel();
    EXPECT_FALSE(desktop_.connection().propertyItems(panel.window, "_KDE_NET_WM_BLUR_BEHIND_REGION").empty());

    // Below everything that an empty panel says. The edge behind it lies at 300.
    const Frame strip{panel.frame.x + 20, panel.frame.y + 175, panel.frame.width - 40, 35};
    const auto edge = static_cast<std::size_t>(300 - strip.x);
    std::vector<std::array<double, 3>> seen;
    const auto difference = [&](std::size_t one, std::size_t other) {
        return std::max(std::abs(seen[one][0] - seen[other][0]), std::abs(seen[one][1] - seen[other][1]));
    };
    desktop_.connection().waitUntil("a blurred red and green backdrop", [&] {
        seen = columns(strip);
        const bool isDark = std::all_of(
            seen.begin(), seen.end(), [](const auto& column) { return std::max(column[0], column[1]) < 60; });
        const bool varies = seen[20][0] > seen[20][1] + 15 && seen[380][1] > seen[380][0] + 15;
        return isDark && varies && difference(edge - 2, edge + 2) < 10;
    });
    program_->closePanel();
}

} // namespace

} // namespace tessel::desktop
