#include "Panel/PanelBackdrop.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <QtGui/QImage>
#include <QtGui/QWindow>

#include "Panel/ClipboardPanelView.h"
#include "Panel/PanelStyle.h"
#include "Support/Backdrop.h"
#include "Support/ContinuousCorners.h"
#include "Support/NativeHandle.h"
#include "Support/RoundedRegion.h"

namespace tessel {

namespace {

/// Shares the pixels with the picture.
QImage imageOf(const ScreenPicture& picture)
{
    const auto bytesPerLine = static_cast<qsizetype>(picture.width) * 4;
    return {reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
            bytesPerLine, QImage::Format_RGB32};
}

} // namespace

PanelBackdrop::PanelBackdrop(ClipboardPanelWindow& window, NativeWindows& nativeWindows)
    : window_(window)
    , nativeWindows_(nativeWindows)
{}

QSize PanelBackdrop::pixelSize(const QSize& size) const
{
    return {qRound(size.width() * ratio()), qRound(size.height() * ratio())};
}

std::array<PixelRectangle, cardCornerCount> PanelBackdrop::cornerRectangles(const QSize& size) const
{
    const QSize pixels = pixelSize(size);
    const int side =
        static_cast<int>(std::ceil(continuousCornerExtent(panelStyle::card::cornerRadius * ratio())));
    const int right = pixels.width() - side;
    const int bottom = pixels.height() - side;
    return {
        {{0, 0, side, side}, {right, 0, side, side}, {0, bottom, side, side}, {right, bottom, side, side}}};
}

void PanelBackdrop::windowWillShow()
{
    // The toolkit would tell the window of its place only when it shows it.
    window_.windowHandle()->setGeometry(window_.geometry());
    blending_ =
        nativeWindows_.blendsTranslucentWindows() ? WindowBlending::translucent : WindowBlending::opaque;
    isBlurred_ = nativeWindows_.blursBehindWindows();
    window_.contentView()->setWindowBlending(blending_);
    corners_ = {};
    if (isBlurred_)
        window_.contentView()->setBackdrop(nullptr);
    else
        takePictures();
    window_.contentView()->setDesktopCorners(corners_);
    fittedSize_ = {};
    fit();
}

void PanelBackdrop::takePictures()
{
    const QSize pixels = pixelSize(window_.size());
    const int margin = qRound(panelStyle::material::blurMargin * ratio());
    std::vector<ScreenPictureRequest> requests = {
        {{-margin, -margin, pixels.width() + 2 * margin, pixels.height() + 2 * margin},
         backdropReduction(ratio())}};
    if (blending_ == WindowBlending::opaque) {
        for (const PixelRectangle& rectangle : cornerRectangles(window_.size()))
            requests.push_back({rectangle});
    }
    const auto pictures = nativeWindows_.picturesOfScreen(handleOf(window_), requests);
    const ScreenPicture& whole = pictures.front();
    window_.contentView()->setBackdrop(
        whole.pixels.empty()
            ? nullptr
            : std::make_shared<Backdrop>(imageOf(whole), QPoint(whole.rectangle.x, whole.rectangle.y),
                                         whole.reduction, panelStyle::material::blurDeviation * ratio()));
    for (std::size_t index = 1; index < pictures.size(); ++index)
        setCorner(index - 1, pictures[index], {});
}

void PanelBackdrop::setCorner(std::size_t corner, const ScreenPicture& picture, QPoint cardOrigin)
{
    const QPoint place = QPoint(picture.rectangle.x, picture.rectangle.y) - cardOrigin;
    corners_.at(corner) = {imageOf(picture).copy(), place};
}

void PanelBackdrop::windowWillChange(const QRect& geometry)
{
    const QRect before = window_.geometry();
    if (blending_ == WindowBlending::translucent || geometry == before)
        return;
    const std::array<bool, cardCornerCount> stays = {
        geometry.topLeft() == before.topLeft(), geometry.topRight() == before.topRight(),
        geometry.bottomLeft() == before.bottomLeft(), geometry.bottomRight() == before.bottomRight()};
    const QRect window(QPoint(), pixelSize(before.size()));
    const QPoint origin = (QPointF(geometry.topLeft() - before.topLeft()) * ratio()).toPoint();
    std::vector<ScreenPictureRequest> requests;
    for (PixelRectangle rectangle : cornerRectangles(geometry.size())) {
        rectangle.x += origin.x();
        rectangle.y += origin.y();
        requests.push_back({rectangle});
    }
    const auto pictures = nativeWindows_.picturesOfScreen(handleOf(window_), requests);
    for (std::size_t corner = 0; corner < corners_.size(); ++corner) {
        if (stays.at(corner))
            continue;
        // Where the window is it would be seen itself.
        const PixelRectangle& wanted = requests[corner].rectangle;
        if (window.intersects(QRect(wanted.x, wanted.y, wanted.width, wanted.height)))
            corners_.at(corner) = {};
        else
            setCorner(corner, pictures[corner], origin);
    }
    window_.contentView()->setDesktopCorners(corners_);
    fittedSize_ = {};
}

void PanelBackdrop::windowDidHide()
{
    corners_ = {};
    window_.contentView()->setBackdrop(nullptr);
    window_.contentView()->setDesktopCorners(corners_);
}

int PanelBackdrop::leastCoverage() const
{
    constexpr int half = 128;
    constexpr int any = 1;
    const bool edgesAreBlended = blending_ == WindowBlending::opaque &&
                                 std::none_of(corners_.begin(), corners_.end(), [](const CardCorner& corner) {
                                     return corner.picture.isNull();
                                 });
    return edgesAreBlended ? any : half;
}

void PanelBackdrop::fit()
{
    const QSize size = pixelSize(window_.size());
    if (size == fittedSize_ && ratio() == fittedRatio_)
        return;
    fittedSize_ = size;
    fittedRatio_ = ratio();
    const bool isCut = blending_ == WindowBlending::opaque;
    PixelRegion card;
    if (isBlurred_ || isCut)
        card = roundedRegion(size, panelStyle::card::cornerRadius * ratio(), leastCoverage());
    nativeWindows_.blurBehind(handleOf(window_), isBlurred_ ? card : PixelRegion());
    nativeWindows_.cutToShape(handleOf(window_), isCut ? card : PixelRegion());
}

} // namespace tessel
