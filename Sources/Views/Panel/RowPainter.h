#pragma once

#include <QtCore/QRectF>
#include <QtCore/QString>

#include "History/ClipboardItem.h"
#include "Panel/PanelArtwork.h"
#include "Panel/RowTitle.h"

class QPainter;

namespace tessel {

/// The texts of one row, laid out.
struct RowText {
    RowTitle title;
    QString kind;
    QString time;
};

/// What changes in a row without its entry changing.
struct RowAppearance {
    bool isPinned = false;
    bool isSelected = false;
    bool isHovered = false;
};

/// The height of a row in points.
int rowHeight(const PanelFonts& fonts, bool isImage, int titleLines);
int sectionHeaderHeight(const PanelFonts& fonts);
/// The width that a row of the panel has for its title, in points.
double rowTitleWidth(bool isImage);

/// Draws the building blocks of the panel's list.
class RowPainter {
public:
    /// Both must outlive this object. Draws from right to left where that is the painter's layout direction.
    RowPainter(QPainter& painter, PanelArtwork& artwork);

    void row(const QRectF& rectangle, const ClipboardItem& item, const RowText& text,
             const RowAppearance& appearance);
    /// The thumbnail of an image, the glyph of a text.
    void previewIcon(const QPointF& topLeft, const ClipboardItem& item);
    /// `title` is shown in upper case.
    void sectionHeader(const QRectF& rectangle, const QString& title);

private:
    void drawContent(const QRectF& rectangle, const ClipboardItem& item, const RowText& text,
                     const RowAppearance& appearance);
    void drawRowFrame(const QRectF& rectangle, const RowAppearance& appearance);
    /// The line at the top of `rectangle`.
    void drawMetadata(const QRectF& rectangle, const RowText& text, bool isPinned);
    void drawThumbnail(const QRectF& frame, const Thumbnail& thumbnail);
    void drawGlyph(const QRectF& frame);
    /// Draws a text in the painter's font at the start of `rectangle`, and returns its width.
    double drawText(const QRectF& rectangle, int ascent, const QString& text);
    QRectF visual(const QRectF& bounds, const QRectF& rectangle) const;

    QPainter& painter_;
    const PanelFonts& fonts_;
    const PanelArtwork::Pictures& pictures_;
};

} // namespace tessel
