#pragma once

#include <array>
#include <string_view>

namespace tessel::test {

/// What a measure is in, which decides how exactly pixels can tell it.
enum class Unit {
    points,   ///< A distance between two edges.
    filled,   ///< A width that thin letters have filled, in points.
    pen,      ///< A distance from where the pen is after a text, or between soft edges, in points.
    centre,   ///< A distance from the middle of a frame, in points.
    width,    ///< Of a line or a gap, in points: told by how much of each pixel is covered.
    size,     ///< Of a font, in points: told likewise.
    tracking, ///< Added to each letter, in points.
    radius,   ///< Of a continuous corner, in points.
    opacity,  ///< 0 to 1.
    shadow,   ///< The opacity of a shadow, of which only the blurred edge can be seen.
    weight,   ///< Of a font, 100 to 900.
    ratio,
    count,
};

struct PanelMeasure {
    std::string_view name;
    double value;
    Unit unit;
};

/// The panel's look in numbers, as it was designed. They stand here once more, written by hand and not taken
/// from the views: what is measured in the panel's pixels has to agree with them.
inline constexpr std::array panelMeasures = {
    PanelMeasure{"panel.width", 460, Unit::points},
    PanelMeasure{"panel.height of no entry", 220, Unit::points},
    PanelMeasure{"panel.height of four entries", 406, Unit::points},
    PanelMeasure{"panel.height of ten entries", 550, Unit::points},

    PanelMeasure{"card.cornerRadius", 14, Unit::radius},
    PanelMeasure{"card.outlineWidth", 1, Unit::width},
    PanelMeasure{"card.outlineOpacity", 0.14, Unit::opacity},
    PanelMeasure{"card.tintOpacity of 0", 0, Unit::opacity},
    PanelMeasure{"card.tintOpacity of 0.37", 0.37, Unit::opacity},
    PanelMeasure{"card.tintOpacity of 1", 1, Unit::opacity},

    PanelMeasure{"header.leftPadding", 12, Unit::points},
    PanelMeasure{"header.rightPadding", 12, Unit::points},
    PanelMeasure{"header.topPadding", 12, Unit::points},
    PanelMeasure{"header.bottomPadding", 10, Unit::points},
    PanelMeasure{"header.spacing", 10, Unit::points},
    PanelMeasure{"header.textSpacing", 2, Unit::points},
    PanelMeasure{"header.title.size", 17, Unit::size},
    PanelMeasure{"header.title.weight", 600, Unit::weight},
    PanelMeasure{"header.title.tracking", 0, Unit::tracking},
    PanelMeasure{"header.title.opacity", 1, Unit::opacity},
    PanelMeasure{"header.itemCount.size", 10, Unit::size},
    PanelMeasure{"header.itemCount.weight", 400, Unit::weight},
    PanelMeasure{"header.itemCount.tracking", 0, Unit::tracking},
    PanelMeasure{"header.itemCount.opacity", 0.65, Unit::opacity},

    PanelMeasure{"headerAction.leftPadding", 8, Unit::points},
    PanelMeasure{"headerAction.rightPadding", 8, Unit::pen},
    PanelMeasure{"headerAction.topPadding", 4, Unit::points},
    PanelMeasure{"headerAction.bottomPadding", 4, Unit::points},
    PanelMeasure{"headerAction.cornerRadius by height", 0.5, Unit::ratio},
    PanelMeasure{"headerAction.fillOpacity", 0.08, Unit::opacity},
    PanelMeasure{"headerAction.label.size", 12, Unit::size},
    PanelMeasure{"headerAction.label.weight", 500, Unit::weight},
    PanelMeasure{"headerAction.label.tracking", 0, Unit::tracking},
    PanelMeasure{"headerAction.label.opacity", 0.75, Unit::opacity},
    PanelMeasure{"headerAction off the header's centre", 0, Unit::centre},

    PanelMeasure{"emptyState.spacing", 6, Unit::points},
    PanelMeasure{"emptyState.title.size", 12, Unit::size},
    PanelMeasure{"emptyState.title.weight", 500, Unit::weight},
    PanelMeasure{"emptyState.title.tracking", 0, Unit::tracking},
    PanelMeasure{"emptyState.title.opacity", 1, Unit::opacity},
    PanelMeasure{"emptyState.hint.size", 10, Unit::size},
    PanelMeasure{"emptyState.hint.weight", 400, Unit::weight},
    PanelMeasure{"emptyState.hint.tracking", 0, Unit::tracking},
    PanelMeasure{"emptyState.hint.opacity", 0.65, Unit::opacity},
    PanelMeasure{"emptyState off the list's centre", 0, Unit::centre},

    PanelMeasure{"list.leftPadding", 8, Unit::points},
    PanelMeasure{"list.rightPadding", 8, Unit::points},
    PanelMeasure{"list.topPadding", 4, Unit::points},
    PanelMeasure{"list.spacing", 10, Unit::points},
    /// Both are invisible, and lie one after the other: 16 and 18.
    PanelMeasure{"list.endSpacer + list.bottomPadding", 34, Unit::points},

    PanelMeasure{"sectionHeader.leftPadding", 6, Unit::points},
    PanelMeasure{"sectionHeader.topPadding", 6, Unit::points},
    PanelMeasure{"sectionHeader.caption.size", 11, Unit::size},
    PanelMeasure{"sectionHeader.caption.weight", 600, Unit::weight},
    PanelMeasure{"sectionHeader.caption.tracking", 0.6, Unit::tracking},
    PanelMeasure{"sectionHeader.caption.opacity", 0.55, Unit::opacity},
    PanelMeasure{"sectionHeader.caption's small letters", 0, Unit::count},

    PanelMeasure{"row.leftPadding", 10, Unit::points},
    PanelMeasure{"row.topPadding", 9, Unit::points},
    PanelMeasure{"row.bottomPadding", 9, Unit::points},
    PanelMeasure{"row.spacing", 10, Unit::points},
    PanelMeasure{"row.textSpacing", 4, Unit::points},
    PanelMeasure{"row.title.size", 13.5, Unit::size},
    PanelMeasure{"row.title.weight", 400, Unit::weight},
    PanelMeasure{"row.title.tracking", 0, Unit::tracking},
    PanelMeasure{"row.title.opacity", 1, Unit::opacity},
    PanelMeasure{"row.title.lines", 2, Unit::count},
    /// Between the row's paddings, less the spacing before the flexible space.
    PanelMeasure{"row.title.width", 460 - 2 * 8 - 2 * 10 - 10, Unit::filled},
    PanelMeasure{"row.metadata.size", 10, Unit::size},
    PanelMeasure{"row.metadata.weight", 400, Unit::weight},
    PanelMeasure{"row.metadata.tracking", 0, Unit::tracking},
    PanelMeasure{"row.metadata.opacity", 0.62, Unit::opacity},
    PanelMeasure{"row.metadataSpacing", 8, Unit::pen},
    /// The pin is 8 points wide in the size of its text style.
    PanelMeasure{"row.metadataSpacing + pin + row.metadataSpacing", 24, Unit::pen},
    PanelMeasure{"row.pin.opacity", 0.62, Unit::opacity},
    /// Drawn 21 units high in 22, which are 11 points.
    PanelMeasure{"row.pin.height, less the drawing's margins", 10.5, Unit::pen},
    PanelMeasure{"row.pin off the line's centre", 0, Unit::centre},
    PanelMeasure{"row.cornerRadius", 10, Unit::radius},
    PanelMeasure{"row.fillOpacity", 0.10, Unit::opacity},
    PanelMeasure{"row.outlineWidth", 1.0, Unit::width},
    PanelMeasure{"row.outlineOpacity", 0.10, Unit::opacity},
    PanelMeasure{"row.fillOpacity, hovered", 0.14, Unit::opacity},
    PanelMeasure{"row.outlineWidth, hovered", 1.0, Unit::width},
    PanelMeasure{"row.outlineOpacity, hovered", 0.10, Unit::opacity},
    PanelMeasure{"row.fillOpacity, selected", 0.10, Unit::opacity},
    PanelMeasure{"row.outlineWidth, selected", 1.5, Unit::width},
    PanelMeasure{"row.outlineOpacity, selected", 0.55, Unit::opacity},
    PanelMeasure{"row.fillOpacity, selected and hovered", 0.14, Unit::opacity},
    PanelMeasure{"row.outlineWidth, selected and hovered", 1.5, Unit::width},
    PanelMeasure{"row.outlineOpacity, selected and hovered", 0.55, Unit::opacity},
    PanelMeasure{"row.shadowOpacity", 0.18, Unit::shadow},
    /// Of the Gaussian that blurs, the standard deviation is half the radius.
    PanelMeasure{"row.shadowBlurRadius", 4, Unit::points},
    PanelMeasure{"row.shadowOffset", 2, Unit::points},

    PanelMeasure{"preview.width", 32, Unit::points},
    PanelMeasure{"preview.height", 32, Unit::points},
    PanelMeasure{"preview.cornerRadius", 6, Unit::radius},
    PanelMeasure{"preview.fillOpacity", 0.12, Unit::opacity},
    /// The glyph is drawn 18 units high in a square of 20 points.
    PanelMeasure{"preview.glyphSide, less the drawing's margins", 18, Unit::points},
    PanelMeasure{"preview.glyphPadding and the drawing's margin", 6 + 1, Unit::points},
    PanelMeasure{"preview.glyphOpacity", 0.75, Unit::opacity},
};

} // namespace tessel::test
