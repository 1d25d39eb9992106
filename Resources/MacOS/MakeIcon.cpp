// tessel-icon <SVG file> <icns file>: draws the icon of the macOS bundle, on every system. An .icns file is a
// row of PNG pictures, each behind four characters that say its size.

#include <array>
#include <cstdio>
#include <cstdlib>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QSaveFile>
#include <QtCore/QString>
#include <QtCore/QtEndian>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

namespace {

struct Picture {
    const char* type; ///< Four characters.
    int pixels;       ///< Of its width, and of its height.
};

/// 16, 32, 128, 256 and 512 points, each at 2x, and the larger ones at 1x as well. In a bundle the system
/// takes no PNG picture for 16 and 32 points at 1x; it makes them of those at 2x.
constexpr std::array<Picture, 8> pictures = {{{"ic11", 32},
                                              {"ic12", 64},
                                              {"ic07", 128},
                                              {"ic13", 256},
                                              {"ic08", 256},
                                              {"ic14", 512},
                                              {"ic09", 512},
                                              {"ic10", 1024}}};

QByteArray png(QSvgRenderer& drawing, int pixels)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    QBuffer encoded;
    encoded.open(QIODevice::WriteOnly);
    image.save(&encoded, "PNG");
    return encoded.data();
}

/// The type, the length of the whole in big-endian order, and what is in it.
QByteArray block(const char* type, const QByteArray& contents)
{
    constexpr qsizetype header = 8;
    QByteArray length(sizeof(quint32), Qt::Uninitialized);
    qToBigEndian(static_cast<quint32>(header + contents.size()), length.data());
    return QByteArray(type) + length + contents;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 3) {
        std::fputs("usage: tessel-icon <SVG file> <icns file>\n", stderr);
        return EXIT_FAILURE;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(arguments[1]));
    if (!drawing.isValid()) {
        std::fprintf(stderr, "%s is no drawing.\n", arguments[1]);
        return EXIT_FAILURE;
    }
    QByteArray contents;
    for (const Picture& picture : pictures)
        contents += block(picture.type, png(drawing, picture.pixels));
    QSaveFile file(QString::fromLocal8Bit(arguments[2]));
    const QByteArray icon = block("icns", contents);
    if (!file.open(QIODevice::WriteOnly) || file.write(icon) != icon.size() || !file.commit()) {
        std::fprintf(stderr, "%s cannot be written: %s\n", arguments[2], qPrintable(file.errorString()));
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
