#pragma once

#include <array>
#include <memory>
#include <vector>

#include "Panel/PanelFonts.h"
#include "Support/NinePatch.h"

namespace tessel {

/// What the panel draws again and again, prepared once and shared by all openings of the panel.
class PanelArtwork {
public:
    enum class RowState { plain, hovered, selected, selectedAndHovered };

    /// The fill tells the hovered row, the outline the selected one.
    static QColor rowFill(RowState state);

    /// The pictures for one number of device pixels to a point.
    struct Pictures {
        /// Shadow, fill and outline, by `RowState`.
        std::array<NinePatch, 4> rows;
        /// The card's shape: opaque inside, nothing outside.
        NinePatch cardShape;
        NinePatch cardOutline;
        QImage pin;
        QImage textGlyph;

        const NinePatch& row(RowState state) const { return rows[static_cast<std::size_t>(state)]; }
    };

    PanelArtwork();
    ~PanelArtwork();

    const PanelFonts& fonts() const { return fonts_; }
    /// Made when a scale is first asked for. The reference stays valid as long as this object.
    const Pictures& pictures(double devicePixelRatio);
    /// Does this still fit the system's font?
    bool isCurrent() const;

private:
    struct Scale;

    PanelFonts fonts_;
    std::vector<std::unique_ptr<Scale>> scales_;
};

} // namespace tessel
