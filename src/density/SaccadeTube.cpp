// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/SaccadeTube.h"

#include "density/DensityLoops.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

struct Interval {
    double low;
    double high;

    Interval within(const Interval &other) const { return {std::max(low, other.low), std::min(high, other.high)}; }
};

/// The t with low <= origin + t * slope <= high.
Interval stepsWithin(Interval range, double origin, double slope)
{
    constexpr double tiny = 1e-12;
    constexpr double unlimited = 1e300;
    if (std::abs(slope) < tiny)
        return range.low <= origin && origin <= range.high ? Interval{-unlimited, unlimited} : Interval{1, -1};
    const double a = (range.low - origin) / slope;
    const double b = (range.high - origin) / slope;
    return {std::min(a, b), std::max(a, b)};
}

qint64 roundedDown(double value)
{
    return static_cast<qint64>(std::floor(value));
}

} // namespace

/// A tube as it is drawn: lines across it, one a step, each through the same cells around its middle.
struct TubeStrip::Brush {
    Brush(const TubeCourse &course_, double factor, const std::vector<double> &profile)
        : course(course_)
        , width(static_cast<int>(profile.size()) - 1)
        , lastStep(std::ceil(course_.lengthPx))
    {
        for (int v = -width; v <= width; ++v) {
            const auto dx = static_cast<int>(std::floor(v * -course.alongY + 0.5));
            const auto dy = static_cast<int>(std::floor(v * course.alongX + 0.5));
            offsets.push_back({dx, dy});
            jumps.push_back(dx * stride + dy);
        }
        heights.push_back(0); // of what is not drawn
        for (const double value : profile)
            heights.push_back(factor * value);
    }

    /// Half the length of the line at a step: beyond both ends the lines become those of a half circle.
    int limitAt(double step) const
    {
        const double beyond = step < 0 ? step : std::max(0.0, step - lastStep);
        return static_cast<int>(std::ceil(std::sqrt(width * 1.0 * width - beyond * beyond)));
    }

    /// Some more than the columns in which the tube can be.
    Interval columns() const
    {
        const double margin = width + 2;
        const double start = course.start.x();
        const double end = start + lastStep * course.alongX;
        return {std::floor(std::min(start, end) - margin), std::max(start, end) + margin};
    }

    /// Some more than the rows of a column in which the tube can be.
    Interval rowsAt(int x) const
    {
        const double margin = width + 2;
        const double dx = x - course.start.x();
        const Interval across = stepsWithin({-margin, margin}, dx * -course.alongY, course.alongX);
        const Interval along = stepsWithin({-margin, lastStep + margin}, dx * course.alongX, course.alongY);
        const Interval rows = across.within(along);
        return Interval{rows.low + course.start.y(), rows.high + course.start.y()}.within({0, canvas::height - 1.0});
    }

    TubeCourse course;
    int width;
    double lastStep; ///< the last one that is not beyond the end
    std::vector<QPoint> offsets;
    std::vector<int> jumps;      ///< the same as differences of cell indices
    std::vector<double> heights; ///< at a distance from the middle, which counts from 1
};

std::vector<double> tubeProfile(const NormalDistribution &kernel)
{
    constexpr double norm = 2.5; // kept; the root of 2 pi, 2.5066, would make the profile's integral 1
    std::vector<double> profile;
    for (int v = 0; v <= kernel.width; ++v) {
        const double distance = static_cast<double>(v) / kernel.sigma;
        profile.push_back(std::exp(-0.5 * distance * distance) / (kernel.sigma * norm));
    }
    return profile;
}

std::optional<TubeCourse> tubeCourse(const SaccadeMark &mark, double lengthThresholdPx)
{
    constexpr double cutAtEachEnd = 0.1;
    const double dx = static_cast<double>(mark.from.x) - mark.to.x;
    const double dy = static_cast<double>(mark.from.y) - mark.to.y;
    if (!(std::sqrt(dx * dx + dy * dy) > lengthThresholdPx))
        return {};
    const QPoint start(static_cast<int>(mark.to.x + cutAtEachEnd * dx),
                       static_cast<int>(mark.to.y + cutAtEachEnd * dy));
    const double toEndX = mark.from.x - cutAtEachEnd * dx - start.x();
    const double toEndY = mark.from.y - cutAtEachEnd * dy - start.y();
    const double length = std::sqrt(toEndX * toEndX + toEndY * toEndY);
    if (!(length > 0))
        return {};
    return TubeCourse{start, length, toEndX / length, toEndY / length};
}

TubeStrip::TubeStrip(ColumnStripe columns)
    : m_columns(columns)
    , m_cells(static_cast<std::size_t>((columns.end - columns.begin + 2) * stride))
    , m_heights(m_cells.size())
    , m_filled(canvas::height)
{
}

void TubeStrip::add(const TubeCourse &course, double factor, const std::vector<double> &profile)
{
    const Brush brush(course, factor, profile);
    sweep(brush);
    const Interval range = brush.columns().within({double(m_columns.begin), m_columns.end - 1.0});
    const auto end = static_cast<int>(range.high) + 1;
    // A column is filled after the next one is drawn, and done with after the next one is filled.
    Rows before;
    Rows current;
    for (int x = static_cast<int>(range.low); x <= range.high + 2; ++x) {
        const Rows next = x < end ? rowsOf(brush, x) : Rows{};
        addDrawn(brush, next);
        fillHoles(current);
        forget(before);
        before = std::exchange(current, next);
    }
}

TubeStrip::Rows TubeStrip::rowsOf(const Brush &brush, int x) const
{
    const Interval rows = brush.rowsAt(x);
    if (!(rows.low <= rows.high))
        return {};
    return {cellIndex(x, static_cast<qint64>(rows.low)), static_cast<int>(rows.high) - static_cast<int>(rows.low) + 1};
}

/// Backwards, so that a cell that several lines hit keeps what the first of them gives it.
void TubeStrip::sweep(const Brush &brush)
{
    const TubeCourse &course = brush.course;
    const double margin = brush.width + 2;
    const Interval all{-static_cast<double>(brush.width), brush.lastStep + brush.width};
    const Interval here =
        all.within(stepsWithin({m_columns.begin - margin, m_columns.end + margin}, course.start.x(), course.alongX))
            .within(stepsWithin({-margin, canvas::height + margin}, course.start.y(), course.alongY));
    const double first = std::max(all.low, std::floor(here.low));
    double step = std::floor(here.high); // a double: where nothing is within, it can be beyond 64 bits
    while (step >= first) {
        drawLine(brush, roundedDown(step * course.alongX + course.start.x() + 0.5),
                 roundedDown(step * course.alongY + course.start.y() + 0.5), brush.limitAt(step));
        --step;
    }
}

/// Beyond the ends the profile is moved outwards: the shorter line ends with the profile's last value, too.
void TubeStrip::drawLine(const Brush &brush, qint64 x, qint64 y, int limit)
{
    const auto isInside = [&](const QPoint &offset) {
        return x + offset.x() >= m_columns.begin && x + offset.x() < m_columns.end && y + offset.y() >= 0 &&
               y + offset.y() < canvas::height;
    };
    const QPoint *offsets = &brush.offsets[static_cast<std::size_t>(brush.width)];
    const int *jumps = &brush.jumps[static_cast<std::size_t>(brush.width)];
    int first = -limit;
    int last = limit;
    if (!isInside(offsets[first]) || !isInside(offsets[last])) {
        const Interval columns{m_columns.begin - 1.0, static_cast<double>(m_columns.end)};
        const Interval near =
            Interval{-1.0 * limit, 1.0 * limit}
                .within(stepsWithin(columns, static_cast<double>(x), -brush.course.alongY))
                .within(stepsWithin({-1, canvas::height}, static_cast<double>(y), brush.course.alongX));
        first = static_cast<int>(std::ceil(near.low));
        last = static_cast<int>(std::floor(near.high));
        while (first <= last && !isInside(offsets[first]))
            ++first;
        while (first <= last && !isInside(offsets[last]))
            --last;
    }
    const qint64 middle = (x - m_columns.begin + 1) * stride + y + 1;
    const int nearest = 1 + brush.width - limit;
    for (int v = last; v >= first; --v)
        m_heights[static_cast<std::size_t>(middle + jumps[v])] = static_cast<quint16>(nearest + std::abs(v));
}

void TubeStrip::addDrawn(const Brush &brush, const Rows &rows)
{
    densityloops::addChosen(&m_cells[rows.first], brush.heights.data(), &m_heights[rows.first], rows.count);
}

/// Lines one px apart leave cells between them out. Such a cell, with at least three drawn neighbours, is set to a
/// quarter of their sum. What it had from earlier tubes is lost by that; what its neighbours had from them comes in.
/// That is kept: the textbook form adds the profile at the cell's own distance from the middle of the tube.
void TubeStrip::fillHoles(const Rows &rows)
{
    if (densityloops::fillHoles(m_filled.data(), &m_cells[rows.first], &m_heights[rows.first], stride, rows.count))
        std::copy_n(m_filled.begin(), rows.count, &m_cells[rows.first]);
}

void TubeStrip::forget(const Rows &rows)
{
    std::fill_n(&m_heights[rows.first], rows.count, quint16(0));
}
