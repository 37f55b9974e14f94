// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/DispersionWindow.h"

DispersionWindow::DispersionWindow(int maximumRadiusPx, int allowedOutliers)
    : m_limit(maximumRadiusPx)
    , m_box(m_limit)
    , m_suspects(maximumRadiusPx, m_limit)
{
    if (allowedOutliers >= 0)
        m_allowed = static_cast<std::size_t>(allowedOutliers);
}

const WorkSample *DispersionWindow::takeFront()
{
    const WorkSample *taken = m_samples[m_first];
    m_box.removeFront(m_first);
    m_suspects.removeFront(m_first);
    ++m_first;
    forgetAnswers();
    if (isEmpty())
        clear();
    return taken;
}

const WorkSample *DispersionWindow::takeBack()
{
    const WorkSample *taken = m_samples.back();
    m_samples.pop_back();
    m_box.removeBack(m_samples.size());
    m_suspects.removeBack(m_samples.size());
    m_bracket.removeBack(*taken, m_samples.size());
    if (m_medianEnd > m_samples.size()) {
        m_medianX.remove(taken->x);
        m_medianY.remove(taken->y);
        m_medianEnd = m_samples.size();
    }
    forgetAnswers();
    if (isEmpty())
        clear();
    return taken;
}

void DispersionWindow::clear()
{
    m_samples.clear();
    m_first = 0;
    forgetAnswers();
    m_box.clear();
    m_medianFirst = 0;
    m_medianEnd = 0;
    m_bracket.clear();
    m_suspects.clear();
}

bool DispersionWindow::decideFit()
{
    if (!m_allowed || isEmpty())
        return m_allowed.has_value();
    if (!m_box.isBuilt())
        m_box.build(m_samples, m_first);
    std::optional<bool> decided = boundedFit();
    // Building the box reads all samples of the window. It is built again only after changes to half of them, so that
    // a change costs a constant time on average.
    if (!decided && 2 * m_box.changes() > size()) {
        m_box.build(m_samples, m_first);
        decided = boundedFit();
    }
    return decided ? *decided : measureFit();
}

std::optional<bool> DispersionWindow::boundedFit()
{
    if (!boxHoldsMedian())
        return std::nullopt;
    const std::optional<bool> decided = m_box.hasAtMost(*m_allowed, m_box.bounds(), m_samples);
    if (decided || !m_box.hasFewStrays(*m_allowed))
        return decided;
    const std::optional<Bounds> bracket = m_bracket.bounds(m_samples, m_first);
    return bracket ? m_box.hasAtMost(*m_allowed, *bracket, m_samples) : std::nullopt;
}

bool DispersionWindow::measureFit()
{
    const QPointF center = medianPoint();
    m_suspects.catchUp(m_samples);
    if (m_suspects.isValidFor(center))
        return m_suspects.hasAtMost(*m_allowed, center, m_samples);
    m_suspects.clear();
    std::vector<double> squares;
    squares.reserve(size());
    std::size_t outliers = 0;
    for (const WorkSample *sample : samples()) {
        const double dx = sample->x - center.x();
        const double dy = sample->y - center.y();
        if (m_limit.isOutside(dx, dy) && ++outliers > *m_allowed)
            return false;
        squares.push_back(dx * dx + dy * dy);
    }
    m_suspects.build(center, squares, m_first);
    return true;
}

qsizetype DispersionWindow::leadingOutliers()
{
    std::size_t count = 0;
    while (count < trimLimit() && isOutlier(*m_samples[m_first + count]))
        ++count;
    return static_cast<qsizetype>(count);
}

qsizetype DispersionWindow::trailingOutliers()
{
    std::size_t count = 0;
    while (count < trimLimit() && isOutlier(*m_samples[m_samples.size() - 1 - count]))
        ++count;
    return static_cast<qsizetype>(count);
}

bool DispersionWindow::isCleanFixation()
{
    if (trimLimit() == 0)
        return fits();
    // While the window slides out of a movement, its first sample is mostly an outlier. Where the box proves that, the
    // window is no clean fixation, and no other sample needs to be measured.
    const WorkSample &front = *m_samples[m_first];
    if (boxHoldsMedian() && m_box.bounds().isOutlier(m_limit, front.x, front.y).value_or(false))
        return false;
    return fits() && !isOutlier(front);
}

bool DispersionWindow::isOutlier(const WorkSample &sample)
{
    if (boxHoldsMedian()) {
        if (const std::optional<bool> decided = m_box.bounds().isOutlier(m_limit, sample.x, sample.y))
            return *decided;
    }
    if (!m_medianPoint) {
        const std::optional<Bounds> bracket = m_bracket.bounds(m_samples, m_first);
        if (const std::optional<bool> decided =
                bracket ? bracket->isOutlier(m_limit, sample.x, sample.y) : std::nullopt)
            return *decided;
    }
    const QPointF center = medianPoint();
    return m_limit.isOutside(sample.x - center.x(), sample.y - center.y());
}

QPointF DispersionWindow::medianPoint()
{
    if (m_medianPoint)
        return *m_medianPoint;
    if (!catchUpMedians())
        buildMedians();
    std::optional<double> x = m_medianX.median();
    std::optional<double> y = m_medianY.median();
    if (!x || !y) {
        buildMedians();
        x = m_medianX.median();
        y = m_medianY.median();
    }
    m_medianPoint = QPointF(*x, *y);
    return *m_medianPoint;
}

/// Tells the running medians what happened since they were last asked; false if that is more work than a new start.
bool DispersionWindow::catchUpMedians()
{
    const std::size_t end = m_samples.size();
    const std::size_t pending = (m_first - m_medianFirst) + (end - m_medianEnd);
    if (m_first >= m_medianEnd || 2 * pending > size())
        return false;
    for (; m_medianEnd < end; ++m_medianEnd) {
        m_medianX.add(m_samples[m_medianEnd]->x);
        m_medianY.add(m_samples[m_medianEnd]->y);
    }
    for (; m_medianFirst < m_first; ++m_medianFirst) {
        m_medianX.remove(m_samples[m_medianFirst]->x);
        m_medianY.remove(m_samples[m_medianFirst]->y);
    }
    return true;
}

void DispersionWindow::buildMedians()
{
    std::vector<double> x;
    std::vector<double> y;
    x.reserve(size());
    y.reserve(size());
    for (const WorkSample *sample : samples()) {
        x.push_back(sample->x);
        y.push_back(sample->y);
    }
    m_medianX.build(std::move(x));
    m_medianY.build(std::move(y));
    m_medianFirst = m_first;
    m_medianEnd = m_samples.size();
}
