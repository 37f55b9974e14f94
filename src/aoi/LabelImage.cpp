// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/LabelImage.h"

#include "aoi/AoiTable.h"
#include "base/BoundedFile.h"
#include "base/TextDecoding.h"
#include "model/PictureFile.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>

namespace {

/// The numbers of all pixels, row by row; empty for an image in colours.
cv::Mat_<ushort> labelsOf(const QImage &image)
{
    if (image.format() == QImage::Format_Indexed8 || image.format() == QImage::Format_Grayscale8) {
        const cv::Mat bytes(image.height(), image.width(), CV_8U, const_cast<uchar *>(image.constBits()),
                            static_cast<size_t>(image.bytesPerLine()));
        cv::Mat_<ushort> labels;
        bytes.convertTo(labels, CV_16U);
        return labels;
    }
    if (image.format() == QImage::Format_Mono || image.format() == QImage::Format_MonoLSB)
        return labelsOf(image.convertToFormat(QImage::Format_Indexed8));
    if (image.format() != QImage::Format_Grayscale16)
        return image.isGrayscale() ? labelsOf(image.convertToFormat(QImage::Format_Grayscale8)) : cv::Mat_<ushort>();
    const cv::Mat words(image.height(), image.width(), CV_16U, const_cast<uchar *>(image.constBits()),
                        static_cast<size_t>(image.bytesPerLine()));
    return words.clone();
}

/// Where each region lies.
QMap<int, QRect> framesOf(const cv::Mat_<ushort> &labels)
{
    QMap<int, QRect> frames;
    for (int y = 0; y < labels.rows; ++y) {
        for (int x = 0; x < labels.cols;) {
            const ushort label = labels(y, x);
            const int start = x;
            while (x < labels.cols && labels(y, x) == label)
                ++x;
            if (label != 0)
                frames[label] |= QRect(start, y, x - start, 1);
        }
    }
    return frames;
}

/// The outline of one part. Contours run through pixels, but an area ends before its right and lower edge: the part
/// grows by a column to the right and a row downwards first.
QPolygon outlineOf(const cv::Mat &part, QPoint offset)
{
    constexpr int growth = 1;
    cv::Mat grown;
    cv::copyMakeBorder(part, grown, 0, growth, 0, growth, cv::BORDER_CONSTANT, cv::Scalar(0));
    cv::dilate(grown, grown, cv::Mat::ones(2, 2, CV_8U), cv::Point(growth, growth));
    std::vector<std::vector<cv::Point>> contours;
    cv::findContours(grown, contours, cv::RETR_EXTERNAL, cv::CHAIN_APPROX_SIMPLE);
    QPolygon polygon;
    for (const cv::Point &vertex : contours.front())
        polygon << QPoint(vertex.x, vertex.y) + offset;
    return polygon;
}

/// The outlines of the parts of a region, from top to bottom. Parts that touch at a corner are one.
QList<QPolygon> outlinesOf(const cv::Mat_<ushort> &labels, int label, const QRect &frame)
{
    const cv::Mat region = labels(cv::Rect(frame.x(), frame.y(), frame.width(), frame.height())) == label;
    cv::Mat parts;
    cv::Mat_<int> places;
    cv::Mat centers;
    const int count = cv::connectedComponentsWithStats(region, parts, places, centers);
    QList<QPolygon> outlines;
    for (int part = 1; part < count; ++part) { // 0 is the rest
        const cv::Rect place(places(part, cv::CC_STAT_LEFT), places(part, cv::CC_STAT_TOP),
                             places(part, cv::CC_STAT_WIDTH), places(part, cv::CC_STAT_HEIGHT));
        outlines << outlineOf(parts(place) == part, frame.topLeft() + QPoint(place.x, place.y));
    }
    const auto firstVertex = [](const QPolygon &p) { return std::pair(p.first().y(), p.first().x()); };
    std::sort(outlines.begin(), outlines.end(),
              [&](const QPolygon &a, const QPolygon &b) { return firstVertex(a) < firstVertex(b); });
    return outlines;
}

QMap<int, QString> namesIn(const QByteArray &bytes)
{
    QMap<int, QString> names;
    for (const QStringList &record : csvRecords(decodeText(bytes))) {
        bool ok = false;
        const int label = record.first().trimmed().toInt(&ok);
        if (ok && record.size() > 1 && !record[1].trimmed().isEmpty())
            names.insert(label, record[1].trimmed());
    }
    return names;
}

} // namespace

AoiFileContents labelledAois(const QImage &image, const QMap<int, QString> &names)
{
    AoiFileContents contents;
    const cv::Mat_<ushort> labels = labelsOf(image);
    if (labels.empty()) {
        contents.error = QStringLiteral("it has colors, and a label image has one number a pixel");
        return contents;
    }
    const QMap<int, QRect> frames = framesOf(labels);
    for (auto frame = frames.cbegin(); frame != frames.cend(); ++frame) {
        const QString name = names.value(frame.key(), QStringLiteral("Region %1").arg(frame.key()));
        int part = 0;
        for (const QPolygon &outline : outlinesOf(labels, frame.key(), *frame)) {
            const QString own = ++part == 1 ? name : QStringLiteral("%1 (%2)").arg(name).arg(part);
            contents.aois << AreaOfInterest(own, outline);
        }
    }
    return contents;
}

AoiFileContents readLabelImage(const QString &imagePath, const QString &namesPath)
{
    AoiFileContents none;
    const QImage image = readPicture(imagePath, &none.error);
    if (image.isNull())
        return none;
    const std::variant<QByteArray, QString> names = readBounded(namesPath, largestDescription);
    const auto *bytes = std::get_if<QByteArray>(&names);
    return labelledAois(image, bytes ? namesIn(*bytes) : QMap<int, QString>());
}
