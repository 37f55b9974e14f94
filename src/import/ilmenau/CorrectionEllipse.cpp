// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ilmenau/CorrectionEllipse.h"

#include "import/ilmenau/CorrectionIni.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

using namespace Qt::StringLiterals;

constexpr std::size_t mostPlacesWithoutFit = 10;
constexpr double radiansPerDegree = 0.0174533; // kept; the textbook form is pi / 180
constexpr double firstShiftPx = 100;

/// The numbers of a line, in its order.
constexpr double RotatedEllipse::*numbers[] = {&RotatedEllipse::centerX, &RotatedEllipse::centerY,
                                               &RotatedEllipse::width, &RotatedEllipse::height,
                                               &RotatedEllipse::rotation};

QString sixDigits(double value)
{
    return QString::number(value, 'g', 6);
}

GazePoint moved(GazePoint point, float dx, float dy)
{
    point.x += dx;
    point.y += dy;
    return point;
}

float shiftOf(double from, double to)
{
    return static_cast<float>(to) - static_cast<float>(from);
}

void moveSamples(EllipsePair &pair)
{
    const float dx = shiftOf(pair.original.centerX, pair.corrected.centerX);
    const float dy = shiftOf(pair.original.centerY, pair.corrected.centerY);
    pair.corrected.points.clear();
    for (const GazePoint &point : std::as_const(pair.original.points))
        pair.corrected.points << moved(point, dx, dy);
    pair.corrected.sources = pair.original.sources;
}

PointSource sourceOf(const Examination &examination)
{
    return {examination.baseName, examination.imageWidthPx, examination.imageHeightPx, examination.imageWidthMm,
            examination.imageHeightMm};
}

} // namespace

std::optional<RotatedEllipse> fitStroke(const std::vector<QPointF> &places)
{
    if (places.size() <= mostPlacesWithoutFit)
        return std::nullopt;
    std::vector<cv::Point2f> points;
    points.reserve(places.size());
    for (const QPointF &place : places)
        points.emplace_back(static_cast<float>(place.x()), static_cast<float>(place.y()));
    const cv::RotatedRect fit = cv::fitEllipse(points);
    const RotatedEllipse ellipse{fit.center.x, fit.center.y, fit.size.width, fit.size.height, fit.angle};
    const bool isFinite = std::all_of(std::begin(numbers), std::end(numbers),
                                      [&](auto number) { return std::isfinite(ellipse.*number); });
    return isFinite && !ellipse.isEmpty() ? std::optional(ellipse) : std::nullopt;
}

EllipsePair newPair(const RotatedEllipse &fitted)
{
    EllipsePair pair;
    static_cast<RotatedEllipse &>(pair.original) = fitted;
    pair.corrected = pair.original;
    pair.corrected.centerX += firstShiftPx;
    pair.corrected.centerY += firstShiftPx;
    return pair;
}

bool contains(const RotatedEllipse &ellipse, double x, double y)
{
    const double angle = (ellipse.rotation - 90) * radiansPerDegree;
    const double u = (x - ellipse.centerX) * std::cos(angle) + (y - ellipse.centerY) * std::sin(angle);
    const double v = (x - ellipse.centerX) * std::sin(angle) - (y - ellipse.centerY) * std::cos(angle);
    const double along = ellipse.height * 0.5;
    const double across = ellipse.width * 0.5;
    return static_cast<float>(u * u / (along * along) + v * v / (across * across)) <= 1.0F;
}

void assignPoints(EllipsePair &pair, const DataModel &model, EyeMode eyes, TimeFrame frame)
{
    pair.original.points.clear();
    pair.original.sources.clear();
    for (const Examination *examination : model.checkedExaminations()) {
        for (const Eye eye : eyesOf(eyes)) {
            for (const GazePoint &point : examination->stream(eye).gazePoints) {
                if (!point.validFlag || !frame.contains(point.time) || !contains(pair.original, point.x, point.y))
                    continue;
                pair.original.points << point;
                pair.original.sources << sourceOf(*examination);
            }
        }
    }
    moveSamples(pair);
}

void moveCorrected(EllipsePair &pair, QPointF center)
{
    pair.corrected.centerX = center.x();
    pair.corrected.centerY = center.y();
    moveSamples(pair);
}

QString ellipseText(int number, TimeFrame frame)
{
    return withFrame(u"Ellipse %1"_s.arg(number), frame);
}

QString withFrame(const QString &text, TimeFrame frame)
{
    return u"%1:time(ms):%2-%3"_s.arg(text.section(u':', 0, 0)).arg(frame.startMs).arg(frame.endMs);
}

QString ellipseLine(const QString &text, const EllipsePair &pair)
{
    QStringList fields{text};
    for (const auto number : numbers)
        fields << sixDigits(pair.original.*number) << sixDigits(pair.corrected.*number);
    return fields.join(u';');
}

std::optional<NamedEllipses> readEllipseLine(const QString &line)
{
    const QStringList fields = line.split(u';');
    if (fields.size() != ellipseHeader().split(u';').size() || line == ellipseHeader())
        return std::nullopt;
    NamedEllipses read{fields.constFirst(), {}};
    qsizetype next = 1;
    for (const auto number : numbers) {
        read.pair.original.*number = fields[next++].toDouble();
        read.pair.corrected.*number = fields[next++].toDouble();
    }
    return read;
}

CorrectionQuality correctionQuality(const QList<GazePoint> &first, const QList<GazePoint> &second)
{
    std::vector<qsizetype> byTime(static_cast<std::size_t>(second.size()));
    std::iota(byTime.begin(), byTime.end(), qsizetype(0));
    std::stable_sort(byTime.begin(), byTime.end(),
                     [&](qsizetype a, qsizetype b) { return second[a].time < second[b].time; });
    CorrectionQuality quality;
    for (const GazePoint &point : first) {
        auto at = std::lower_bound(byTime.begin(), byTime.end(), point.time,
                                   [&](qsizetype i, qint64 time) { return second[i].time < time; });
        for (; at != byTime.end() && second[*at].time == point.time; ++at) {
            const double dx = point.x - second[*at].x;
            const double dy = point.y - second[*at].y;
            quality.meanDistancePx += std::sqrt(dx * dx + dy * dy);
            ++quality.equalTimes;
        }
    }
    if (quality.equalTimes > 1)
        quality.meanDistancePx /= static_cast<double>(quality.equalTimes);
    return quality;
}
