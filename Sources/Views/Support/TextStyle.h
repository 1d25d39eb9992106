#pragma once

#include <QtGui/QFont>

namespace tessel {

/// A text as a design names it: the system font in one size, in points, and weight.
struct Text {
    double size;
    QFont::Weight weight = QFont::Normal;
    double tracking = 0; ///< Added to each letter.
};

/// The platform's named text styles.
namespace textStyle {
inline constexpr double titleSize = 22;
inline constexpr double secondLevelTitleSize = 17;
inline constexpr double thirdLevelTitleSize = 15;
inline constexpr double bodySize = 13;
inline constexpr double calloutSize = 12;
inline constexpr double captionSize = 10;
inline constexpr double caption2Size = 10;
inline constexpr Text headline = {13, QFont::Bold};
} // namespace textStyle

/// A font with the measures that a layout needs, in whole points. The system font as it is when this is made.
struct TextStyle {
    explicit TextStyle(const Text& text);

    /// How wide a text is in a layout, in whole points.
    int widthOf(const QString& text) const;
    /// From the top of that height, in points, to the baseline of a line in its middle.
    int baselineIn(int height) const { return (height - lineHeight) / 2 + ascent; }

    QFont font;
    /// What is laid out with the font is drawn at this scale. The toolkit rounds fonts to whole pixels: a
    /// size with a half is had by drawing a font of twice the size half as large.
    double scale;
    int ascent; ///< From the top of a line to its baseline.
    int lineHeight;
};

} // namespace tessel
