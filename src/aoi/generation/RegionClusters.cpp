// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/RegionClusters.h"

#include "base/Progress.h"
#include "clustering/FixationOutline.h"
#include "model/DataModel.h"

#include <vector>

namespace {

PooledStreams pooledFixations(const DataModel &model)
{
    PooledStreams pools;
    for (qsizetype i = 0; i < model.examinations().size(); ++i) {
        const Examination &examination = model.examinations()[i];
        if (!examination.checked)
            continue;
        for (const Eye eye : allEyes) {
            for (Fixation fixation : examination.stream(eye).scanpath) {
                fixation.examination = static_cast<int>(i);
                fixation.cluster = 0;
                pools[static_cast<std::size_t>(eye)].scanpath << fixation;
            }
        }
    }
    return pools;
}

bool touch(const QPainterPath &region, const QPainterPath &ellipse)
{
    return region.contains(ellipse) || region.intersects(ellipse) || ellipse.contains(region) ||
           ellipse.intersects(region);
}

/// One pool and the outlines of its fixations.
class Pool {
public:
    explicit Pool(EyeData &pool) : m_pool(pool)
    {
        for (const Fixation &fixation : std::as_const(pool.scanpath)) {
            m_outlines.push_back(FixationOutline(fixation).path());
            m_bounds.push_back(m_outlines.back().controlPointRect());
        }
    }

    /// Makes a cluster of the fixations that touch the region and have none. They get its number afterwards, as with
    /// all clusters: the copies within it have none.
    void addCluster(const QPainterPath &region, const std::stop_token &stop)
    {
        const QRectF regionBounds = region.controlPointRect();
        QList<Fixation> members;
        std::vector<qsizetype> places;
        for (qsizetype i = 0; i < m_pool.scanpath.size() && !stop.stop_requested(); ++i) {
            const auto place = static_cast<std::size_t>(i);
            const Fixation &fixation = std::as_const(m_pool.scanpath)[i];
            if (fixation.cluster != 0 || areApart(regionBounds, m_bounds[place]) || !touch(region, m_outlines[place]))
                continue;
            members << fixation;
            places.push_back(i);
            Progress::refresh();
        }
        if (members.isEmpty())
            return;
        m_pool.fixationClusters << FixationCluster(members, {});
        for (const qsizetype place : places)
            m_pool.scanpath[place].cluster = static_cast<int>(m_pool.fixationClusters.size());
    }

private:
    /// Also of rectangles without area, other than QRectF's own test.
    static bool areApart(const QRectF &a, const QRectF &b)
    {
        return a.right() < b.left() || b.right() < a.left() || a.bottom() < b.top() || b.bottom() < a.top();
    }

    EyeData &m_pool;
    std::vector<QPainterPath> m_outlines;
    std::vector<QRectF> m_bounds;
};

} // namespace

std::optional<PooledStreams> regionClusters(const QList<QPolygon> &regions, const DataModel &model,
                                            const std::stop_token &stop)
{
    Progress progress(QStringLiteral("Calculating the Clusters, please wait."), static_cast<int>(regions.size()));
    PooledStreams streams = pooledFixations(model);
    std::vector<Pool> pools(streams.begin(), streams.end());
    for (const QPolygon &region : regions) {
        QPainterPath path;
        path.addPolygon(region);
        path.closeSubpath();
        for (Pool &pool : pools)
            pool.addCluster(path, stop);
        if (stop.stop_requested())
            return std::nullopt;
        progress.advance();
    }
    return streams;
}
