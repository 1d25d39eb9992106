#pragma once

#include <array>

#include <QtGui/QFont>

#include "Panel/PanelStyle.h"

namespace tessel {

/// A font of the panel with the measures that a layout needs, in whole points.
struct TextStyle {
    explicit TextStyle(const panelStyle::Text& text);

    QFont font;
    /// What is laid out with the font is drawn at this scale. The toolkit rounds fonts to whole pixels: a
    /// size with a half is had by drawing a font of twice the size half as large.
    double scale;
    int ascent; ///< From the top of a line to its baseline.
    int lineHeight;
};

/// The panel's fonts: the system font, as it was when this was made, in the panel's sizes.
struct PanelFonts {
    PanelFonts();

    QFont systemFont;
    TextStyle title{panelStyle::header::title};
    TextStyle itemCount{panelStyle::header::itemCount};
    TextStyle headerAction{panelStyle::headerAction::label};
    TextStyle emptyTitle{panelStyle::emptyState::title};
    TextStyle emptyHint{panelStyle::emptyState::hint};
    TextStyle sectionHeader{panelStyle::sectionHeader::caption};
    TextStyle rowTitle{panelStyle::row::title};
    TextStyle rowMetadata{panelStyle::row::metadata};

    /// How far the pen moves for each ASCII character of a row's title, before kerning; 0 for the
    /// characters that are not printed.
    std::array<double, 128> rowTitleAdvances;
};

} // namespace tessel
