// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/SaccadeTube.h"

#include "density/DensityLoops.h"

#include <algorithm>
#include <cmath>

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
    std::vector<int> jumps; ///< the same as differences of cell indices
    std::vector<double> heights;
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
    , m_lastTube(m_cells.size())
    , m_holes(canvas::height)
{
}

void TubeStrip::add(const TubeCourse &course, double factor, const std::vector<double> &profile)
{
    ++m_tube;
    const Brush brush(course, factor, profile);
    sweep(brush);
    const Interval columns = brush.columns().within({double(m_columns.begin), m_columns.end - 1.0});
    for (int x = static_cast<int>(columns.low); x <= columns.high; ++x) {
        const Interval rows = brush.rowsAt(x);
        if (rows.low <= rows.high)
            fillColumn(x, static_cast<int>(rows.low), static_cast<int>(rows.high));
    }
}

void TubeStrip::sweep(const Brush &brush)
{
    const TubeCourse &course = brush.course;
    const double margin = brush.width + 2;
    const Interval all{-static_cast<double>(brush.width), brush.lastStep + brush.width};
    const Interval here =
        all.within(stepsWithin({m_columns.begin - margin, m_columns.end + margin}, course.start.x(), course.alongX))
            .within(stepsWithin({-margin, canvas::height + margin}, course.start.y(), course.alongY));
    double step = std::floor(here.low); // a double: where nothing is within, it can be beyond 64 bits
    while (step <= here.high) {
        if (step >= all.low)
            drawLine(brush, roundedDown(step * course.alongX + course.start.x() + 0.5),
                     roundedDown(step * course.alongY + course.start.y() + 0.5), brush.limitAt(step));
        ++step;
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
    const double *heights = &brush.heights[static_cast<std::size_t>(brush.width - limit)];
    int first = -limit;
    int last = limit;
    while (first <= last && !isInside(offsets[first]))
        ++first;
    while (first <= last && !isInside(offsets[last]))
        --last;
    const qint64 middle = (x - m_columns.begin + 1) * stride + y + 1;
    for (int v = first; v <= last; ++v) {
        const auto cell = static_cast<std::size_t>(middle + jumps[v]);
        if (m_lastTube[cell] == m_tube)
            continue; // once a tube
        m_lastTube[cell] = m_tube;
        m_cells[cell] += heights[std::abs(v)];
    }
}

/// Lines one px apart leave cells between them out. Such a cell, with at least three drawn neighbours, is set to a
/// quarter of their sum. What it had from earlier tubes is lost by that; what its neighbours had from them comes in.
/// That is kept: the textbook form adds the profile at the cell's own distance from the middle of the tube.
void TubeStrip::fillColumn(int x, int firstY, int lastY)
{
    constexpr double share = 0.25;
    const std::size_t first = cellIndex(x, firstY);
    const int count = lastY - firstY + 1;
    if (!densityloops::findHoles(m_holes.data(), &m_lastTube[first], stride, m_tube, count))
        return;
    const auto drawn = [&](std::size_t cell) { return m_lastTube[cell] == m_tube ? m_cells[cell] : 0.0; };
    for (int i = 0; i < count; ++i) {
        if (m_holes[static_cast<std::size_t>(i)]) {
            const std::size_t cell = first + static_cast<std::size_t>(i);
            m_cells[cell] = share * (drawn(cell - stride) + drawn(cell + stride) + drawn(cell - 1) + drawn(cell + 1));
        }
    }
}
