#include "MenuBar/MenuBarIcon.h"

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QPainter>

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

const QColor bright(242, 242, 243);
const QColor dark(38, 38, 40);

/// The symbol with an edge of one pixel in the other colour. On the panel that it is drawn for nobody sees
/// the edge; on another one, since not every panel tells what it looks like, it keeps the symbol from
/// vanishing.
QImage symbolWithEdge(const Design& design, int side, ColorScheme panel)
{
    constexpr double edgeOpacity = 0.9;
    const auto draw = [&](const QColor& color) {
        return renderedSymbol(QString::fromStdString(std::string(menuBarSymbolName) + design.suffix),
                              QSizeF(side, side), color, 1);
    };
    const bool isDark = panel == ColorScheme::dark;
    const QImage edge = draw(isDark ? dark : bright);
    QImage around(edge.size(), QImage::Format_ARGB32_Premultiplied);
    around.fill(Qt::transparent);
    QPainter painter(&around);
    for (const int y : {-1, 0, 1}) {
        for (const int x : {-1, 0, 1})
            painter.drawImage(x, y, edge);
    }
    painter.end();
    QImage picture(edge.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    painter.begin(&picture);
    painter.setOpacity(edgeOpacity);
    painter.drawImage(0, 0, around);
    painter.setOpacity(1);
    painter.drawImage(0, 0, draw(isDark ? bright : dark));
    painter.end();
    return picture.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

StatusIcon menuBarIcon(int pixels, ColorScheme panel)
{
    if (pixels <= 0)
        return {};
    const auto [design, side] = fitting(pixels);
    const QImage symbol = symbolWithEdge(design, side, panel);
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
