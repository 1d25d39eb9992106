#include "Panel/PanelArtwork.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>

#include <cmath>

#include "Panel/PanelStyle.h"
#include "Support/ContinuousCorners.h"
#include "Support/Shadow.h"
#include "Support/Symbol.h"

namespace tessel {

namespace {

struct Outline {
    double width; ///< In points.
    double opacity;
};

/// Makes the frames of one shape at one scale. All lengths in it are device pixels.
class FrameMaker {
public:
    FrameMaker(double cornerRadius, int overhang, double devicePixelRatio)
        : radius_(cornerRadius * devicePixelRatio)
        , overhang_(overhang)
        , devicePixelRatio_(devicePixelRatio)
        , side_(2 * (overhang + static_cast<int>(std::ceil(continuousCornerExtent(radius_)))) + 1)
    {}

    QImage blank() const
    {
        QImage image(side_, side_, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        return image;
    }

    void fill(QImage& image, const QColor& color) const
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(continuousRoundedRectangle(shape(), radius_), color);
    }

    /// Strokes the shape's edge, half of the line on either side of it. Its outer edge is moved inwards to
    /// a whole pixel, where the halves are not whole themselves, so that the line is sharp.
    void stroke(QImage& image, const Outline& outline, int outermost) const
    {
        const double width = outline.width * devicePixelRatio_;
        const double outside = std::min(std::floor(width / 2), static_cast<double>(outermost));
        const double inset = width / 2 - outside;
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        QPen pen(panelStyle::white(outline.opacity), width);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.strokePath(
            continuousRoundedRectangle(shape().adjusted(inset, inset, -inset, -inset), radius_ - inset), pen);
    }

    NinePatch patch(QImage image) const { return {std::move(image), overhang_}; }

private:
    QRectF shape() const
    {
        return QRectF(0, 0, side_, side_).adjusted(overhang_, overhang_, -overhang_, -overhang_);
    }

    double radius_;
    int overhang_;
    double devicePixelRatio_;
    int side_;
};

std::array<NinePatch, 4> rowFrames(double devicePixelRatio)
{
    using namespace panelStyle;
    const Shadow shadow = {row::shadowBlurRadius * devicePixelRatio, row::shadowOffset * devicePixelRatio,
                           row::shadowOpacity};
    const FrameMaker maker(row::cornerRadius, shadow.reach(), devicePixelRatio);
    QImage shape = maker.blank();
    maker.fill(shape, Qt::black);
    const QImage shadowOfRow = shadowAround(shape, shadow);

    const auto frame = [&](PanelArtwork::RowState state, const Outline& outline) {
        QImage image = maker.blank();
        maker.fill(image, PanelArtwork::rowFill(state));
        maker.stroke(image, outline, shadow.reach());
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
        painter.drawImage(0, 0, shadowOfRow);
        painter.end();
        return maker.patch(image);
    };
    const Outline plain = {row::outlineWidth, row::outlineOpacity};
    const Outline selected = {row::selectedOutlineWidth, row::selectedOutlineOpacity};
    using State = PanelArtwork::RowState;
    return {frame(State::plain, plain), frame(State::hovered, plain), frame(State::selected, selected),
            frame(State::selectedAndHovered, selected)};
}

PanelArtwork::Pictures makePictures(double devicePixelRatio)
{
    using namespace panelStyle;
    constexpr int nothingBeyondTheWindow = 0;
    const FrameMaker cardMaker(card::cornerRadius, nothingBeyondTheWindow, devicePixelRatio);
    QImage cardShape = cardMaker.blank();
    cardMaker.fill(cardShape, Qt::black);
    QImage cardOutline = cardMaker.blank();
    cardMaker.stroke(cardOutline, {card::outlineWidth, card::outlineOpacity}, nothingBeyondTheWindow);

    return {
        .rows = rowFrames(devicePixelRatio),
        .cardShape = cardMaker.patch(cardShape),
        .cardOutline = cardMaker.patch(cardOutline),
        .pin = renderedSymbol(QStringLiteral("pin.fill"), {pin::width, pin::height},
                              white(row::metadataOpacity), devicePixelRatio),
        .textGlyph = renderedSymbol(QStringLiteral("doc.text.fill"), {preview::glyphSide, preview::glyphSide},
                                    white(preview::glyphOpacity), devicePixelRatio),
    };
}

} // namespace

struct PanelArtwork::Scale {
    double devicePixelRatio;
    Pictures pictures;
};

PanelArtwork::PanelArtwork() = default;
PanelArtwork::~PanelArtwork() = default;

QColor PanelArtwork::rowFill(RowState state)
{
    const bool isHovered = state == RowState::hovered || state == RowState::selectedAndHovered;
    return isHovered ? panelStyle::rowHoverBackground() : panelStyle::rowBackground();
}

const PanelArtwork::Pictures& PanelArtwork::pictures(double devicePixelRatio)
{
    for (const auto& scale : scales_) {
        if (scale->devicePixelRatio == devicePixelRatio)
            return scale->pictures;
    }
    scales_.push_back(std::make_unique<Scale>(Scale{devicePixelRatio, makePictures(devicePixelRatio)}));
    return scales_.back()->pictures;
}

bool PanelArtwork::isCurrent() const
{
    return fonts_.systemFont == QGuiApplication::font();
}

} // namespace tessel
