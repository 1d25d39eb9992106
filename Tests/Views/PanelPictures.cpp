// Draws the panel in the states worth looking at, over several desktops, and writes the pictures as PNG
// files.
//
//     tessel_panel_pictures <directory>
//
// The environment decides the rest: QT_SCALE_FACTOR the scale, TESSEL_FONT the system font, LANGUAGE the
// language. With -reverse the interface runs from right to left.

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include <QtCore/QDir>
#include <QtCore/QLocale>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include "Support/PanelDesktop.h"
#include "Support/Translations.h"

namespace tessel::test {

namespace {

enum class Backdrop { white, black, photograph };

constexpr int margin = 24; // Points of desktop around the panel.

QImage desktopPicture(Backdrop backdrop, const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(backdrop == Backdrop::white ? Qt::white : Qt::black);
    if (backdrop != Backdrop::photograph)
        return image;
    // Hills at dusk, as far as sines can paint them.
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const double u = static_cast<double>(x) / size.width();
            const double v = static_cast<double>(y) / size.height();
            const bool isHill = v > 0.55 + 0.08 * std::sin(7 * u) + 0.03 * std::sin(31 * u);
            const QColor sky = QColor::fromHsvF(static_cast<float>(0.58 + 0.45 * v - 0.05), 0.55F,
                                                static_cast<float>(0.55 + 0.4 * v));
            const QColor hill = QColor::fromHsvF(0.33F, 0.5F, static_cast<float>(0.5 - 0.35 * v + 0.1 * u));
            image.setPixelColor(x, y, isHill ? hill : sky);
        }
    }
    return image;
}

Thumbnail thumbnail(int kind)
{
    QImage image(Thumbnail::side, Thumbnail::side, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient gradient(0, 0, 0, Thumbnail::side);
    gradient.setColorAt(0, QColor::fromHsv(kind * 97 % 360, 150, 250));
    gradient.setColorAt(1, QColor::fromHsv((kind * 97 + 70) % 360, 200, 150));
    painter.fillRect(image.rect(), gradient);
    painter.setBrush(QColor(255, 240, 200));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPointF(44, 18), 9, 9);
    painter.setBrush(QColor(20, 40, 60));
    painter.drawPolygon(QPolygonF({{0, 64}, {0, 48}, {22, 26}, {38, 46}, {48, 36}, {64, 54}, {64, 64}}));
    painter.end();
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(image.constBits());
    return {{pixels, pixels + Thumbnail::side * Thumbnail::side}};
}

SharedImage image(int kind)
{
    auto image = FakeImage::withPNG("picture " + std::to_string(kind));
    image->setThumbnail(thumbnail(kind));
    return image;
}

void copyMixedEntries(PanelDesktop& desktop)
{
    desktop.copy("قائمة المهام: مراجعة التقرير النهائي وإرساله إلى فريق التصميم قبل نهاية الأسبوع، ثم "
                 "التخطيط للإصدار القادم من التطبيق مع بقية الزملاء");
    desktop.copy(
        "const auto found = std::find_if(rows.begin(), rows.end(),\n\t[id](const Row& row) {\n\t\treturn "
        "row.id == id;\n\t});\r\nif (found == rows.end())\r\n\treturn std::nullopt;");
    desktop.copy(image(1));
    desktop.copy("https://www.example.org/reports/2024/quarterly?format=pdf&include=charts,tables,appendix&"
                 "session=0a1b2c3d4e5f60718293a4b5c6d7e8f9");
    desktop.copy(
        "Thanks so much for yesterday 🎉 — the prototype landed really well 👩‍💻👍🏽");
    desktop.copy("Meet at 14:30, platform 7");
    desktop.copy(image(3));
    desktop.copy("The panel opens beside the pointer. It is small, dark and quick, it holds the last hundred "
                 "things that were copied, and it goes away as soon as one of them has been chosen.");
    desktop.pin("Meet at 14:30, platform 7");
}

/// Puts the panel's picture on a desktop's.
QImage onDesktop(const QImage& panel, Backdrop backdrop)
{
    const double scale = panel.devicePixelRatio();
    const int border = static_cast<int>(margin * scale);
    QImage picture = desktopPicture(backdrop, panel.size() + QSize(2 * border, 2 * border));
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    painter.drawImage(margin, margin, panel);
    return picture;
}

void save(PanelDesktop& desktop, const QDir& directory, const QString& name)
{
    const std::vector<std::pair<Backdrop, QString>> backdrops = {
        {Backdrop::white, QStringLiteral("white")},
        {Backdrop::black, QStringLiteral("black")},
        {Backdrop::photograph, QStringLiteral("photo")}};
    for (const auto& [backdrop, backdropName] : backdrops) {
        const QString path = directory.filePath(name + u'-' + backdropName + QStringLiteral(".png"));
        if (!onDesktop(drawn(desktop.window()), backdrop).save(path)) {
            std::fprintf(stderr, "Cannot write %s.\n", qPrintable(path));
            std::exit(EXIT_FAILURE);
        }
    }
}

void drawAll(const QDir& directory)
{
    PanelDesktop empty;
    empty.openPanel();
    save(empty, directory, QStringLiteral("empty"));
    empty.copy("One text");
    runMainLoop();
    save(empty, directory, QStringLiteral("one"));

    PanelDesktop mixed;
    copyMixedEntries(mixed);
    mixed.openPanel();
    mixed.press(Qt::Key_Down);
    mixed.view().pointerEntered(mixed.item("Meet at 14:30, platform 7").id);
    save(mixed, directory, QStringLiteral("mixed-top"));
    for (int step = 0; step < 8; ++step)
        mixed.press(Qt::Key_Down);
    mixed.view().pointerEntered(*mixed.view().selectedItemID());
    save(mixed, directory, QStringLiteral("mixed-end"));

    mixed.view().showContextMenu(*mixed.view().selectedItemID(), QPoint(100, 100));
    runMainLoop();
    auto* menu = reinterpret_cast<QWidget*>(QApplication::activePopupWidget());
    onDesktop(drawn(*menu), Backdrop::photograph).save(directory.filePath(QStringLiteral("menu.png")));
}

} // namespace

} // namespace tessel::test

int main(int argumentCount, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argumentCount, arguments);
    const tessel::Translations translations(QLocale::system().uiLanguages());
    if (argumentCount != 2) {
        std::fprintf(stderr, "usage: %s <directory>\n", arguments[0]);
        return EXIT_FAILURE;
    }
    if (const QString font = qEnvironmentVariable("TESSEL_FONT"); !font.isEmpty())
        QApplication::setFont(QFont(font));
    const QDir directory(QString::fromLocal8Bit(arguments[1]));
    directory.mkpath(QStringLiteral("."));
    tessel::test::drawAll(directory);
    return EXIT_SUCCESS;
}
