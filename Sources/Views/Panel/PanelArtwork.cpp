#include "Panel/PanelArtwork.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>

#include <cmath>

#include "Panel/PanelStyle.h"
#include "Support/FrameMaker.h"
#include "Support/Shadow.h"
#include "Support/Symbol.h"

namespace tessel {

namespace {

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
    const Outline plain = {row::outlineWidth, white(row::outlineOpacity)};
    const Outline selected = {row::selectedOutlineWidth, white(row::selectedOutlineOpacity)};
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
    cardMaker.stroke(cardOutline, {card::outlineWidth, white(card::outlineOpacity)}, nothingBeyondTheWindow);

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
