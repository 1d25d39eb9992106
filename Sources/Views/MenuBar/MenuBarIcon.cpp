#include "MenuBar/MenuBarIcon.h"

#include <QtGui/QColor>
#include <QtGui/QImage>

#include <algorithm>
#include <array>
#include <string>

#include "MenuBar/MenuBarRows.h"
#include "Support/Symbol.h"

namespace tessel {

namespace {

/// A file with the symbol, and the number of pixels that its lines were laid on.
struct Design {
    const char* suffix;
    int grid;
};

constexpr std::array<Design, 2> designs = {{{"", 22}, {".small", 16}}};

struct Fitting {
    Design design;
    int side; ///< Pixels of the picture that the symbol takes.
};

/// The design that fills most of the picture with whole multiples of its grid. Where all leave much of it
/// empty, the first one is stretched.
Fitting fitting(int pixels)
{
    constexpr double enough = 0.8;
    Fitting best = {designs.front(), 0};
    for (const Design& design : designs) {
        const int side = pixels / design.grid * design.grid;
        if (side > best.side)
            best = {design, side};
    }
    return best.side < pixels * enough ? Fitting{designs.front(), pixels} : best;
}

QColor symbolColor(ColorScheme panel)
{
    return panel == ColorScheme::dark ? QColor(242, 242, 243) : QColor(38, 38, 40);
}

} // namespace

StatusIcon menuBarIcon(int pixels, ColorScheme panel)
{
    if (pixels <= 0)
        return {};
    const auto [design, side] = fitting(pixels);
    const QImage symbol =
        renderedSymbol(QString::fromStdString(std::string(menuBarSymbolName) + design.suffix),
                       QSizeF(side, side), symbolColor(panel), 1)
            .convertToFormat(QImage::Format_ARGB32);
    const int margin = (pixels - side) / 2;
    StatusIcon icon = {pixels, std::vector<std::uint32_t>(static_cast<std::size_t>(pixels) *
                                                          static_cast<std::size_t>(pixels))};
    auto* place = icon.pixels.data() + margin * pixels + margin;
    for (int y = 0; y < side; ++y, place += pixels) {
        const auto* line = reinterpret_cast<const std::uint32_t*>(symbol.constScanLine(y));
        std::copy(line, line + side, place);
    }
    return icon;
}

} // namespace tessel
