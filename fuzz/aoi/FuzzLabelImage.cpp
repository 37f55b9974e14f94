// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a label image: kind of its pixels, width, number of bytes of the table of names, the table,
// pixels. Together the areas of a region lie as its pixels do. The files of grey images lie in the folder of the call,
// which is best one in memory.

#include "aoi/LabelImage.h"
#include "AoiChecks.h"

#include <QFile>

#include <cstring>

namespace {

constexpr QImage::Format formats[] = {QImage::Format_Mono,       QImage::Format_MonoLSB,     QImage::Format_Indexed8,
                                      QImage::Format_Grayscale8, QImage::Format_Grayscale16, QImage::Format_RGB32};

/// Each region is looked for in all of its frame: more pixels cost their square.
constexpr int longestSide = 32;

const QString imageFile = QStringLiteral("fuzz-labels.png");
const QString namesFile = QStringLiteral("fuzz-labels.csv");

QImage imageOf(QByteArrayView pixels, QImage::Format format, int width)
{
    const qsizetype pixelBits = QImage::toPixelFormat(format).bitsPerPixel();
    const qsizetype lineBytes = (width * pixelBits + 7) / 8;
    const qsizetype height = std::min<qsizetype>(pixels.size() / lineBytes, longestSide);
    QImage image(width, static_cast<int>(height), format);
    if (format == QImage::Format_Indexed8)
        image.setColorTable(QList<QRgb>(256, qRgb(9, 99, 9)));
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(image.scanLine(y), pixels.data() + y * lineBytes, static_cast<std::size_t>(lineBytes));
    return image;
}

int labelAt(const QImage &image, int x, int y)
{
    switch (image.format()) {
    case QImage::Format_Grayscale16:
        return reinterpret_cast<const ushort *>(image.constScanLine(y))[x];
    case QImage::Format_Grayscale8:
        return image.constScanLine(y)[x];
    case QImage::Format_RGB32:
        return qRed(image.pixel(x, y));
    default:
        return image.pixelIndex(x, y);
    }
}

QMap<int, QRect> regionsOf(const QImage &image)
{
    QMap<int, QRect> regions;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (const int label = labelAt(image, x, y); label != 0)
                regions[label] |= QRect(x, y, 1, 1);
        }
    }
    return regions;
}

/// Without names of its own an area tells its region: "Region 3 (2)".
QMap<int, QRect> regionsOf(const QList<AreaOfInterest> &areas)
{
    QMap<int, QRect> regions;
    for (const AreaOfInterest &area : areas) {
        const QRect corners = area.polygon.boundingRect(); // of vertices: the last column and row are behind the area
        regions[area.name.section(u' ', 1, 1).toInt()] |= corners.adjusted(0, 0, -1, -1);
    }
    return regions;
}

void write(const QString &path, QByteArrayView bytes)
{
    QFile file(path);
    check(file.open(QIODevice::WriteOnly));
    check(file.write(bytes.data(), bytes.size()) == bytes.size());
}

/// The file gives the same outlines, under the names of the table.
void checkFile(const QImage &image, QByteArrayView names, const QList<AreaOfInterest> &areas)
{
    check(image.save(imageFile));
    write(namesFile, names);
    const AoiFileContents contents = readLabelImage(imageFile, namesFile);
    checkWhole(contents);
    checkReadAreas(contents.aois);
    const auto isSamePlace = [](const auto &one, const auto &other) { return one.polygon == other.polygon; };
    check(std::equal(areas.cbegin(), areas.cend(), contents.aois.cbegin(), contents.aois.cend(), isSamePlace));
}

void checkImage(const QImage &image, QByteArrayView names)
{
    const AoiFileContents contents = labelledAois(image, {});
    checkTold(contents);
    checkReadAreas(contents.aois);
    check(contents.error.isEmpty() || image.format() == QImage::Format_RGB32);
    if (contents.error.isEmpty())
        check(regionsOf(contents.aois) == regionsOf(image));
    if (image.format() == QImage::Format_Grayscale8 || image.format() == QImage::Format_Grayscale16)
        checkFile(image, names, contents.aois);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    constexpr qsizetype headBytes = 3;
    const QByteArrayView input(data, static_cast<qsizetype>(size));
    if (input.size() < headBytes)
        return 0;
    const qsizetype namesBytes = std::min<qsizetype>(data[2], input.size() - headBytes);
    const QImage image =
        imageOf(input.sliced(headBytes + namesBytes), formats[data[0] % std::size(formats)], data[1] % longestSide + 1);
    if (!image.isNull())
        checkImage(image, input.sliced(headBytes, namesBytes));
    return 0;
}
