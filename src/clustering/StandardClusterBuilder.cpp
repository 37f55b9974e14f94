// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/StandardClusterBuilder.h"

#include "base/Progress.h"
#include "base/Truncation.h"
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
/// and from the circle about one reference place, with the same bits as if it were computed from all of them: the sums
/// are added up in the same order, and the largest of some numbers depends on no order.
class Candidates {
public:
    size_t count() const { return m_discs.size(); }

    /// Mean of the fixations, weighted with their samples, cut to whole pixels.
    QPoint weightedCentre() const { return centreOf(m_sumX, m_sumY, m_weight); }
    QPoint weightedCentreWith(const Disc &further) const
    {
        return centreOf(m_sumX + further.mean.x() * further.weight, m_sumY + further.mean.y() * further.weight,
                        m_weight + further.weight);
    }

    struct Bounds {
        double least;
        double most;
    };
    /// Between which numbers the radius of the circle around `centre` lies that covers all of them and a further one:
    /// it differs from that about the reference place by no more than the two are apart. Where the further one alone
    /// reaches beyond the limit, the others are not looked at.
    Bounds coverRadiusBounds(const Disc &further, QPoint centre, double limit) const
    {
        constexpr double rounding = 1e-9;
        const double own = std::max(0.0, further.reach(centre));
        if (m_discs.empty() || own > limit)
            return {own, own};
        const double apart = distancePx(centre, m_reference);
        const double slack = apart == 0 ? 0 : apart + rounding * (1 + apart + m_radius);
        return {std::max(own, m_radius - slack), std::max(own, m_radius + slack)};
    }

    /// That radius itself. The place becomes the reference.
    double coverRadiusWith(const Disc &further, QPoint centre)
    {
        m_reference = centre;
        m_radius = 0;
        for (const Disc &disc : m_discs)
            m_radius = std::max(m_radius, disc.reach(centre));
        return std::max(m_radius, further.reach(centre));
    }

    void add(const Disc &disc)
    {
        if (m_discs.empty())
            m_reference = disc.mean;
        m_discs.push_back(disc);
        m_sumX += disc.mean.x() * disc.weight;
        m_sumY += disc.mean.y() * disc.weight;
        m_weight += disc.weight;
        m_radius = std::max(m_radius, disc.reach(m_reference));
    }

private:
    static QPoint centreOf(double sumX, double sumY, double weight)
    {
        return {truncated(sumX / weight), truncated(sumY / weight)};
    }

    std::vector<Disc> m_discs;
    double m_sumX = 0;
    double m_sumY = 0;
    double m_weight = 0;
    QPoint m_reference;
    double m_radius = 0; ///< of the circle around the reference place that covers all of them
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
            if (static_cast<qint64>(candidates.count()) + (m_free.cend() - next) < m_parameters.minimumFixations)
                return {}; // however many of the rest go with them
            // The first fixation of a round is in without a test.
            const Disc &disc = m_fixations[*next];
            if (*next != first && !fits(disc, candidates))
                continue;
            candidates.add(disc);
            round.fixations.push_back(*next);
        }
        // Without a candidate there is no cluster, whatever the minimum.
        if (round.fixations.empty() || static_cast<qint64>(candidates.count()) < m_parameters.minimumFixations)
            return {};
        round.centre = candidates.weightedCentre();
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
    bool fits(const Disc &disc, Candidates &candidates) const
    {
        const QPoint centre = candidates.weightedCentreWith(disc);
        const Candidates::Bounds radius = candidates.coverRadiusBounds(disc, centre, m_parameters.maximumRadiusPx);
        // Where a circle has no place, a larger one has none.
        if (!hasPlace(centre, radius.least))
            return false;
        if (hasPlace(centre, radius.most))
            return true;
        Progress::refresh();
        return hasPlace(centre, candidates.coverRadiusWith(disc, centre));
    }

    bool hasPlace(QPoint centre, double radius) const
    {
        return m_parameters.maximumRadiusPx >= radius && clearOfClusters(centre, radius);
    }

    /// Neither centre lies in the other circle, and what the circles overlap is, in whole percent of the distance of
    /// the centres, no more than allowed: the part behind the decimal point does not count.
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
            progress.advance();
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
