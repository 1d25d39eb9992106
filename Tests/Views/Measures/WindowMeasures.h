#pragma once

#include <cmath>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "Measures/MeasuredText.h"
#include "Measures/MeasuringFont.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

/// The design's colours, as opacities of white in the dark scheme and of black in the light one.
struct Ink {
    double dark;
    double light;
};
inline constexpr Ink primary = {1, 0.85};
inline constexpr Ink secondary = {0.75, 0.65};

struct Line {
    std::string start; ///< Its first letters: the measuring font is wide.
    double left;
    double top;
    double size;
    double weight;
    Ink ink;
};

/// Measures the root of a window beside the panel, at a scale and in a colour scheme.
class WindowMeasures : public testing::TestWithParam<std::tuple<double, ColorScheme>> {
protected:
    static constexpr double marginAround = 2; ///< Around a line, in points.

    virtual QWidget& root() const = 0;

    double scale() const { return std::get<0>(GetParam()); }
    ColorScheme scheme() const { return std::get<1>(GetParam()); }
    bool isDark() const { return scheme() == ColorScheme::dark; }
    double opacity(const Ink& ink) const { return isDark() ? ink.dark : ink.light; }

    QImage drawnOver(Qt::GlobalColor ground) const
    {
        QImage image((QSizeF(root().size()) * scale()).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale());
        image.fill(ground);
        root().render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    /// White on black in both schemes.
    MeasuredPicture ink() const
    {
        QImage image = drawnOver(isDark() ? Qt::black : Qt::white);
        if (!isDark())
            image.invertPixels();
        return MeasuredPicture(image);
    }
    /// Shows what has the scheme's ground colour.
    MeasuredPicture fills() const
    {
        QImage image = drawnOver(isDark() ? Qt::white : Qt::black);
        if (isDark())
            image.invertPixels();
        return MeasuredPicture(image);
    }

    /// What whole pixels cost, in points.
    double tolerance() const { return 0.6 / scale() + (scale() == std::floor(scale()) ? 0 : 0.3); }
    static double widthOf(const std::string& text, double size)
    {
        return MeasuringFont::advance * size * static_cast<double>(text.size());
    }

    /// `marginBelow`: how far below the line nothing else is, in points.
    void expectLine(const MeasuredPicture& picture, const Line& line, int ground = 0,
                    double marginBelow = marginAround) const
    {
        SCOPED_TRACE(line.start);
        const MeasuredText measured = measuredText(
            picture,
            {picture.pixels(line.left - marginAround),
             picture.pixels(line.left + widthOf(line.start, line.size))},
            {picture.pixels(line.top - marginAround), picture.pixels(line.top + line.size + marginBelow)},
            ground, line.start);
        EXPECT_NEAR(picture.points(measured.columns.start), line.left, tolerance());
        EXPECT_NEAR(picture.points(measured.rows.start), line.top, tolerance());
        EXPECT_NEAR(measured.size, line.size, 0.5);
        EXPECT_NEAR(measured.weight, line.weight, 20 + 30 / scale());
        EXPECT_NEAR(measured.opacity, opacity(line.ink), 0.006);
    }

    MeasuringFont font_;
    PanelDesktop desktop_;
};

} // namespace tessel::test
