#include "Panel/RowPainter.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <algorithm>

#include "Panel/PanelStyle.h"
#include "Support/ContinuousCorners.h"
#include "Support/DevicePixels.h"
#include "Support/VisualRectangle.h"

namespace tessel {

using namespace panelStyle;

namespace {

/// What the preview takes of a row's width.
constexpr int previewAdvance = preview::side + row::spacing;

int textHeight(const PanelFonts& fonts, int titleLines)
{
    return titleLines * fonts.rowTitle.lineHeight + row::textSpacing + fonts.rowMetadata.lineHeight;
}

PanelArtwork::RowState frameState(const RowAppearance& appearance)
{
    using enum PanelArtwork::RowState;
    if (appearance.isSelected)
        return appearance.isHovered ? selectedAndHovered : selected;
    return appearance.isHovered ? hovered : plain;
}

/// Refers to the thumbnail's pixels. Null: there is no picture.
QImage pictureOf(const Thumbnail& thumbnail)
{
    constexpr auto pixelCount = static_cast<std::size_t>(Thumbnail::side) * Thumbnail::side;
    if (thumbnail.pixels.size() != pixelCount)
        return {};
    constexpr auto bytesPerLine = Thumbnail::side * static_cast<qsizetype>(sizeof(std::uint32_t));
    return {reinterpret_cast<const uchar*>(thumbnail.pixels.data()), Thumbnail::side, Thumbnail::side,
            bytesPerLine, QImage::Format_ARGB32_Premultiplied};
}

} // namespace

int rowHeight(const PanelFonts& fonts, bool isImage, int titleLines)
{
    const int content = textHeight(fonts, titleLines);
    return 2 * row::verticalPadding + (isImage ? std::max(content, preview::side) : content);
}

int sectionHeaderHeight(const PanelFonts& fonts)
{
    return sectionHeader::topPadding + fonts.sectionHeader.lineHeight;
}

double rowTitleWidth(bool isImage)
{
    constexpr int content = card::width - 2 * list::horizontalPadding - 2 * row::horizontalPadding;
    return content - row::spacing - (isImage ? previewAdvance : 0);
}

RowPainter::RowPainter(QPainter& painter, PanelArtwork& artwork)
    : painter_(painter)
    , fonts_(artwork.fonts())
    , pictures_(artwork.pictures(devicePixelRatio(painter)))
{}

QRectF RowPainter::visual(const QRectF& bounds, const QRectF& rectangle) const
{
    return visualRectangle(painter_.layoutDirection(), bounds, rectangle);
}

void RowPainter::row(const QRectF& rectangle, const ClipboardItem& item, const RowText& text,
                     const RowAppearance& appearance)
{
    drawRowFrame(rectangle, appearance);
    painter_.save();
    // Stacked marks and overlong letters would reach into other rows.
    painter_.setClipRect(alignedToDevicePixels(painter_, rectangle), Qt::IntersectClip);
    drawContent(rectangle, item, text, appearance);
    painter_.restore();
}

void RowPainter::drawContent(const QRectF& rectangle, const ClipboardItem& item, const RowText& text,
                             const RowAppearance& appearance)
{
    QRectF content = rectangle.adjusted(row::horizontalPadding, row::verticalPadding, -row::horizontalPadding,
                                        -row::verticalPadding);
    if (item.isImage()) {
        const QRectF preview(content.topLeft(), QSizeF(preview::side, preview::side));
        previewIcon(visual(rectangle, preview).topLeft(), item);
        content.setLeft(content.left() + previewAdvance);
    }
    content = visual(rectangle, content);

    const double titleHeight = text.title.lineCount() * fonts_.rowTitle.lineHeight;
    const QRectF title = visual(content, {content.topLeft(), QSizeF(text.title.width(), titleHeight)});
    painter_.setPen(white(row::titleOpacity));
    text.title.draw(painter_, title.topLeft() + QPointF(0, fonts_.rowTitle.ascent),
                    fonts_.rowTitle.lineHeight);
    content.setTop(title.bottom() + row::textSpacing);
    drawMetadata(content, text, appearance.isPinned);
}

void RowPainter::drawRowFrame(const QRectF& rectangle, const RowAppearance& appearance)
{
    pictures_.row(frameState(appearance)).draw(painter_, alignedToDevicePixels(painter_, rectangle));
}

void RowPainter::drawMetadata(const QRectF& rectangle, const RowText& text, bool isPinned)
{
    const TextStyle& style = fonts_.rowMetadata;
    painter_.setFont(style.font);
    painter_.setPen(white(row::metadataOpacity));
    QRectF line = rectangle; // From left to right.
    line.setLeft(line.left() + drawText(rectangle, style.ascent, text.kind) + row::metadataSpacing);

    if (isPinned) {
        const QRectF symbol(line.left(), line.top() + (style.lineHeight - pin::height) / 2, pin::width,
                            pin::height);
        painter_.drawImage(alignedToDevicePixels(painter_, visual(rectangle, symbol)).topLeft(),
                           pictures_.pin);
        line.setLeft(symbol.right() + row::metadataSpacing);
    }
    drawText(visual(rectangle, line), style.ascent, text.time);
}

double RowPainter::drawText(const QRectF& rectangle, int ascent, const QString& text)
{
    const double width = QFontMetricsF(painter_.font()).horizontalAdvance(text);
    const QRectF place = visual(rectangle, {rectangle.topLeft(), QSizeF(width, rectangle.height())});
    painter_.drawText(place.topLeft() + QPointF(0, ascent), text);
    return width;
}

void RowPainter::previewIcon(const QPointF& topLeft, const ClipboardItem& item)
{
    const QRectF frame = alignedToDevicePixels(painter_, {topLeft, QSizeF(preview::side, preview::side)});
    if (const auto* image = std::get_if<SharedImage>(&item.content))
        drawThumbnail(frame, (*image)->thumbnail());
    else
        drawGlyph(frame);
}

void RowPainter::drawThumbnail(const QRectF& frame, const Thumbnail& thumbnail)
{
    const QImage picture = pictureOf(thumbnail);
    QBrush brush(white(preview::fillOpacity));
    if (!picture.isNull()) {
        brush = QBrush(picture);
        brush.setTransform(QTransform::fromTranslate(frame.left(), frame.top())
                               .scale(frame.width() / picture.width(), frame.height() / picture.height()));
    }
    painter_.save();
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter_.fillPath(continuousRoundedRectangle(frame, preview::cornerRadius), brush);
    painter_.restore();
}

void RowPainter::drawGlyph(const QRectF& frame)
{
    constexpr int padding = (preview::side - preview::glyphSide) / 2;
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.fillPath(continuousRoundedRectangle(frame, preview::cornerRadius), white(preview::fillOpacity));
    const QRectF glyph = frame.adjusted(padding, padding, -padding, -padding);
    painter_.drawImage(alignedToDevicePixels(painter_, glyph).topLeft(), pictures_.textGlyph);
    painter_.restore();
}

void RowPainter::sectionHeader(const QRectF& rectangle, const QString& title)
{
    const TextStyle& style = fonts_.sectionHeader;
    painter_.setFont(style.font);
    painter_.setPen(white(sectionHeader::opacity));
    drawText(rectangle.adjusted(sectionHeader::horizontalPadding, sectionHeader::topPadding,
                                -sectionHeader::horizontalPadding, 0),
             style.ascent, title.toUpper());
}

} // namespace tessel
