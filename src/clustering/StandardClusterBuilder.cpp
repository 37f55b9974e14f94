#include "clustering/StandardClusterBuilder.h"

#include "base/Progress.h"
#include "base/TextFormat.h"
#include "clustering/ClusterSort.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

double distancePx(QPoint a, QPoint b)
{
    const double x = static_cast<double>(a.x()) - b.x();
    const double y = static_cast<double>(a.y()) - b.y();
    return std::sqrt(x * x + y * y);
}

/// A fixation or a cluster as the growth sees it.
struct Disc {
    explicit Disc(const ScanpathSection &section)
        : mean(section.mean)
        , radius(static_cast<double>(section.majorAxis.length()))
        , weight(static_cast<double>(section.samples.size()))
    {
    }

    /// How far it reaches from a point.
    double reach(QPoint from) const { return distancePx(mean, from) + radius; }

    QPoint mean;
    double radius; ///< px
    double weight; ///< samples
};

std::vector<Disc> discsOf(const auto &sections)
{
    return {sections.cbegin(), sections.cend()};
}

/// The fixations of a round, and the circle around them. What is asked about a further fixation is answered from sums
/// and from the circle so far, with the same bits as if it were computed from all of them: the sums are added up in the
/// same order, and the largest of some numbers depends on no order.
class Candidates {
public:
    bool isEmpty() const { return m_discs.empty(); }
    size_t count() const { return m_discs.size(); }

    /// Mean of the fixations, weighted with their samples, cut to whole pixels.
    QPoint weightedCentre() const { return m_centre; }
    QPoint weightedCentreWith(const Disc &further) const
    {
        const double weight = m_weight + further.weight;
        return {text::truncated((m_sumX + further.mean.x() * further.weight) / weight),
                text::truncated((m_sumY + further.mean.y() * further.weight) / weight)};
    }

    /// Radius of the circle around `centre` that covers all of them and a further one. Where that is more than the
    /// limit, any number above the limit may come back.
    double coverRadiusWith(const Disc &further, QPoint centre, double limit)
    {
        double radius = std::max(0.0, further.reach(centre));
        if (isEmpty() || radius > limit)
            return radius;
        if (centre == m_centre)
            return std::max(radius, m_radius);
        radius = std::max(radius, m_discs[m_farthest].reach(centre)); // it often decides again
        for (size_t i = 0; i < m_discs.size() && radius <= limit; ++i) {
            const double reach = m_discs[i].reach(centre);
            if (reach > radius) {
                radius = reach;
                m_farthest = i;
            }
        }
        return radius;
    }

    void add(const Disc &disc, QPoint centre, double radius)
    {
        m_discs.push_back(disc);
        m_sumX += disc.mean.x() * disc.weight;
        m_sumY += disc.mean.y() * disc.weight;
        m_weight += disc.weight;
        m_centre = centre;
        m_radius = radius;
    }

private:
    std::vector<Disc> m_discs;
    double m_sumX = 0;
    double m_sumY = 0;
    double m_weight = 0;
    QPoint m_centre;
    double m_radius = 0; ///< around `m_centre`, of all of them
    size_t m_farthest = 0;
};

class Growth {
public:
    Growth(const StandardClusterParameters &parameters, const EyeData &stream)
        : m_parameters(parameters)
        , m_fixations(discsOf(stream.scanpath))
        , m_clusters(discsOf(stream.fixationClusters))
        , m_free(m_fixations.size())
    {
        for (size_t i = 0; i < m_free.size(); ++i)
            m_free[i] = i;
    }

    struct Round {
        std::vector<size_t> fixations; ///< ascending
        QPoint centre;
    };

    /// The free fixations from `first` on that go together; none if they are too few for a cluster.
    Round roundFrom(size_t first)
    {
        Candidates candidates;
        Round round;
        for (auto next = std::lower_bound(m_free.cbegin(), m_free.cend(), first); next != m_free.cend(); ++next) {
            const Disc &disc = m_fixations[*next];
            const QPoint centre = candidates.weightedCentreWith(disc);
            const double radius = candidates.coverRadiusWith(disc, centre, m_parameters.maximumRadiusPx);
            // The first fixation of a round is in without a test.
            if (*next != first && !(m_parameters.maximumRadiusPx >= radius && clearOfClusters(centre, radius)))
                continue;
            candidates.add(disc, centre, radius);
            round.fixations.push_back(*next);
            Progress::refresh();
        }
        round.centre = candidates.weightedCentre();
        // Without a candidate there is no cluster, whatever the minimum.
        if (candidates.isEmpty() || static_cast<int>(candidates.count()) < m_parameters.minimumFixations)
            return {};
        return round;
    }

    void take(const Round &round, const FixationCluster &cluster)
    {
        m_clusters.emplace_back(cluster);
        std::vector<size_t> rest;
        std::set_difference(m_free.cbegin(), m_free.cend(), round.fixations.cbegin(), round.fixations.cend(),
                            std::back_inserter(rest));
        m_free = std::move(rest);
    }

private:
    /// Neither centre lies in the other circle, and what the circles overlap is, in whole percent of the distance of
    /// the centres, no more than allowed: the part behind the decimal point never counted.
    bool clearOfClusters(QPoint centre, double radius) const
    {
        return std::all_of(m_clusters.cbegin(), m_clusters.cend(), [&](const Disc &cluster) {
            const double distance = distancePx(centre, cluster.mean);
            if (radius > distance || cluster.radius > distance)
                return false;
            const double percent = (cluster.radius + radius - distance) * (100.0 / distance);
            return !(std::trunc(percent) > m_parameters.overlapAllowed);
        });
    }

    const StandardClusterParameters m_parameters;
    const std::vector<Disc> m_fixations;
    std::vector<Disc> m_clusters;
    std::vector<size_t> m_free; ///< ascending
};

} // namespace

void StandardClusterBuilder::buildClusters(EyeData &stream, FinalSort finalSort) const
{
    if (stream.scanpath.isEmpty())
        return;
    for (Fixation &fixation : stream.scanpath)
        fixation.cluster = 0;
    Growth growth(m_parameters, stream);
    {
        const auto count = static_cast<size_t>(stream.scanpath.size());
        Progress progress(QStringLiteral("Calculating the Clusters, please wait."), static_cast<int>(count));
        int number = 1;
        for (size_t i = 0; i < count; ++i) {
            const Growth::Round round = growth.roundFrom(i);
            progress.tick();
            if (round.fixations.empty())
                continue;
            QList<Fixation> members; // copied before they get their number: in a cluster it is 0
            for (const size_t member : round.fixations) {
                Fixation &fixation = stream.scanpath[static_cast<qsizetype>(member)];
                members << fixation;
                fixation.cluster = number;
            }
            stream.fixationClusters << FixationCluster(std::move(members), round.centre);
            growth.take(round, stream.fixationClusters.constLast());
            ++number;
        }
    }
    if (finalSort == FinalSort::Yes)
        sortBySize(stream.fixationClusters);
}
