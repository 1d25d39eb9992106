// Every text of the panel can be read, whatever is behind it: a contrast of 4.5 to 1 (WCAG 2.2, 1.4.3) from a
// tint of a tenth up.

#include <cmath>

#include <gtest/gtest.h>

#include <QtGui/QPainter>

#include "Panel/ColorView.h"
#include "Panel/HeaderAction.h"
#include "Support/PanelDesktop.h"

namespace tessel::test {

namespace {

/// WCAG 2.2, relative luminance.
double luminance(const QColor& colour)
{
    const auto linear = [](float channel) {
        const auto value = static_cast<double>(channel);
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor whiteOver(const QColor& ground, double opacity)
{
    const auto over = [opacity](int channel) {
        return static_cast<int>(std::lround(255 * opacity + channel * (1 - opacity)));
    };
    return {over(ground.red()), over(ground.green()), over(ground.blue())};
}

void expectReadable(const char* what, const QColor& ground, double textOpacity)
{
    EXPECT_GE(contrast(whiteOver(ground, textOpacity), ground), 4.5)
        << what << " on " << ground.name().toStdString();
}

/// The panel's window as it is to be seen over a desktop of one colour.
QImage seenOver(QWidget& window, const QColor& colour)
{
    QImage seen(window.size(), QImage::Format_RGB32);
    seen.fill(colour);
    QPainter(&seen).drawImage(0, 0, drawn(window));
    return seen;
}

/// The brightest colour in a part of a picture without texts: what can be read there can be read anywhere in
/// it.
QColor brightestIn(const QImage& image, const QRect& part)
{
    QColor brightest = Qt::black;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (luminance(image.pixelColor(x, y)) > luminance(brightest))
                brightest = image.pixelColor(x, y);
        }
    }
    return brightest;
}

struct Over {
    const char* name;
    QColor desktop;
    bool isBlurredByUs;
};

void PrintTo(const Over& over, std::ostream* stream)
{
    *stream << over.name;
}

class PanelContrast : public testing::TestWithParam<Over> {
protected:
    PanelContrast()
    {
        if (GetParam().isBlurredByUs)
            desktop_.nativeWindows.screen = [colour = GetParam().desktop.rgb()](int, int) { return colour; };
        desktop_.copyAll({"A", "B"});
        desktop_.openPanel();
        desktop_.view().pointerEntered(desktop_.item("B").id);
    }

    /// A part of a row without text.
    QRect emptyEndOf(std::string_view text)
    {
        const QRect row = desktop_.list().rowRectangle(desktop_.item(text).id).value();
        return QRect(desktop_.list().mapTo(&desktop_.window(), row.center() + QPoint(100, -4)), QSize(60, 8));
    }

    QImage seen() { return seenOver(desktop_.window(), GetParam().desktop); }

    void expectEveryTextToBeReadable()
    {
        const QImage panel = seen();
        const QColor card = brightestIn(panel, {230, 20, 100, 20});
        expectReadable("the title", card, 1);
        expectReadable("the number of items", card, 0.65);
        expectReadable("the hint of an empty history", card, 0.65);
        // The section's title stands on the card between header and rows.
        expectReadable("a section's title", brightestIn(panel, {230, 64, 100, 8}), 0.55);
        for (const char* text : {"A", "B"}) {
            const QColor row = brightestIn(panel, emptyEndOf(text));
            expectReadable("an entry's title", row, 1);
            expectReadable("an entry's kind and time", row, 0.62);
        }
        for (auto* button : desktop_.window().findChildren<HeaderAction*>()) {
            // Above the label, inside the capsule.
            const QRect top(button->mapTo(&desktop_.window(), QPoint(button->width() / 2 - 4, 2)),
                            QSize(8, 2));
            expectReadable("a button", brightestIn(panel, top), 0.75);
            button->setDown(true);
            expectReadable("a pressed button", brightestIn(seen(), top), 0.75);
            button->setDown(false);
        }
    }

    PanelDesktop desktop_;
};

} // namespace

TEST_P(PanelContrast, EveryTextCanBeReadFromATintOfATenthUp)
{
    for (const double tint : {0.1, 0.2, 0.25, 0.3, 0.4, 0.5, 0.6, 0.7, 1.0}) {
        SCOPED_TRACE("a tint of " + std::to_string(tint));
        desktop_.window().findChild<ColorView*>()->setColor(
            QColor::fromRgbF(0, 0, 0, static_cast<float>(tint)));
        expectEveryTextToBeReadable();
    }
}

INSTANTIATE_TEST_SUITE_P(Desktops, PanelContrast,
                         testing::Values(Over{"White", Qt::white, true}, Over{"Black", Qt::black, true},
                                         Over{"Red", Qt::red, true}, Over{"Green", Qt::green, true},
                                         Over{"Blue", Qt::blue, true}, Over{"Yellow", Qt::yellow, true},
                                         Over{"Grey", Qt::gray, true},
                                         Over{"CompositorOverWhite", Qt::white, false},
                                         Over{"CompositorOverBlack", Qt::black, false},
                                         Over{"CompositorOverRed", Qt::red, false},
                                         Over{"CompositorOverGreen", Qt::green, false},
                                         Over{"CompositorOverBlue", Qt::blue, false},
                                         Over{"CompositorOverYellow", Qt::yellow, false}),
                         [](const auto& over) { return std::string(over.param.name); });

} // namespace tessel::test
