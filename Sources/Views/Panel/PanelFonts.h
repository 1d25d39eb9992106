#pragma once

#include <array>

#include <QtGui/QFont>

#include "Panel/PanelStyle.h"
#include "Support/TextStyle.h"

namespace tessel {

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
