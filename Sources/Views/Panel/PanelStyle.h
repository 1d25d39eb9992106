#pragma once

#include "Support/Colors.h"
#include "Support/TextStyle.h"

/// Every measure of the history panel's look, in points (one point is one logical pixel), and every colour.
namespace tessel::panelStyle {

using tessel::black;
using tessel::Text;
using tessel::white;
using textStyle::calloutSize;
using textStyle::caption2Size;
using textStyle::captionSize;

namespace card {
inline constexpr int width = 460;
inline constexpr double cornerRadius = 14;
inline constexpr double outlineWidth = 1;
inline constexpr double outlineOpacity = 0.14;
} // namespace card

/// The material behind the panel: nearly black, as a heads-up display has it.
namespace material {
inline constexpr int red = 19;
inline constexpr int green = 19;
inline constexpr int blue = 22;
/// Little enough to see what is behind, enough for every text, down to a tint of a tenth, over a white
/// desktop: the faintest one on a hovered row needs a material that is no brighter than 50.
inline constexpr float opacity = 0.87F;
/// Of the blur of what is behind. Lines of text and the edges of windows are gone with it.
inline constexpr double blurDeviation = 20;
/// How far beyond the card's edges what is behind it is looked at; further away it hardly counts.
inline constexpr double blurMargin = 24;
} // namespace material

namespace header {
inline constexpr int horizontalPadding = 12;
inline constexpr int topPadding = 12;
inline constexpr int bottomPadding = 10;
inline constexpr int spacing = 10;
inline constexpr int textSpacing = 2;
inline constexpr Text title = {17, QFont::DemiBold};
inline constexpr double titleOpacity = 1;
inline constexpr Text itemCount = {captionSize};
inline constexpr double itemCountOpacity = 0.65;
} // namespace header

namespace headerAction {
inline constexpr Text label = {12, QFont::Medium};
inline constexpr double labelOpacity = 0.75;
inline constexpr int horizontalPadding = 8;
inline constexpr int verticalPadding = 4;
inline constexpr double fillOpacity = 0.08;
/// While it is pressed, in place of platform chrome.
inline constexpr double pressedFillOpacity = 0.16;
} // namespace headerAction

namespace emptyState {
inline constexpr int spacing = 6;
inline constexpr Text title = {calloutSize, QFont::Medium};
inline constexpr double titleOpacity = 1;
inline constexpr Text hint = {captionSize};
inline constexpr double hintOpacity = 0.65;
} // namespace emptyState

namespace list {
inline constexpr int horizontalPadding = 8;
inline constexpr int topPadding = 4;
inline constexpr int bottomPadding = 18;
inline constexpr int spacing = 10;
/// The invisible end of the list.
inline constexpr int endSpacer = 16;
} // namespace list

namespace sectionHeader {
inline constexpr Text caption = {11, QFont::DemiBold, 0.6};
inline constexpr double opacity = 0.55;
inline constexpr int horizontalPadding = 6;
inline constexpr int topPadding = 6;
} // namespace sectionHeader

namespace row {
inline constexpr int horizontalPadding = 10;
inline constexpr int verticalPadding = 9;
/// Between the preview, the texts and the flexible space after them.
inline constexpr int spacing = 10;
inline constexpr int textSpacing = 4;
inline constexpr Text title = {13.5};
inline constexpr double titleOpacity = 1;
inline constexpr int titleLines = 2;
inline constexpr Text metadata = {caption2Size};
inline constexpr double metadataOpacity = 0.62;
inline constexpr int metadataSpacing = 8;
inline constexpr double cornerRadius = 10;
inline constexpr double outlineWidth = 1.0;
inline constexpr double outlineOpacity = 0.10;
inline constexpr double selectedOutlineWidth = 1.5;
inline constexpr double selectedOutlineOpacity = 0.55;
inline constexpr double shadowOpacity = 0.18;
inline constexpr double shadowBlurRadius = 4;
inline constexpr double shadowOffset = 2; ///< Downwards.
} // namespace row

/// The fill of a row that is not hovered.
inline QColor rowBackground()
{
    return white(0.10);
}
/// The fill of the hovered row.
inline QColor rowHoverBackground()
{
    return white(0.14);
}

namespace preview {
inline constexpr int side = 32;
inline constexpr double cornerRadius = 6;
inline constexpr int glyphSide = 20;
inline constexpr double glyphOpacity = 0.75;
inline constexpr double fillOpacity = 0.12;
} // namespace preview

/// The symbol between kind and time, in the size that its text style gives it.
namespace pin {
inline constexpr double width = 8;
inline constexpr double height = 11;
} // namespace pin

/// The thin knob at the right edge, inside the list's padding.
namespace scrollIndicator {
inline constexpr double thickness = 4;
inline constexpr double edgeInset = 2;
inline constexpr double topInset = 4;
/// Keeps the knob out of the card's round corner.
inline constexpr double bottomInset = 12;
inline constexpr double minimumLength = 28;
inline constexpr float opacity = 0.30F;
inline constexpr float pressedOpacity = 0.50F;
} // namespace scrollIndicator

/// The context menu of a row, in the panel's look.
namespace menu {
/// Translucent where the window system blends windows.
inline QColor fill()
{
    return {44, 44, 46};
}
inline constexpr float opacity = 0.97F;
inline constexpr double outlineOpacity = 0.16;
inline constexpr double textOpacity = 0.92;
/// Readable on the card, and as a highlight under white text.
inline QColor destructiveText()
{
    return {255, 105, 97};
}
inline QColor destructiveHighlight()
{
    return {208, 50, 44};
}
} // namespace menu

} // namespace tessel::panelStyle
