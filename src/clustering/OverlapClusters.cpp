// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/OverlapClusters.h"

#include "base/Progress.h"
#include "base/Truncation.h"
#include "clustering/FixationOutline.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace {

using IsCluster = std::function<bool(const QList<Fixation> &)>;

/// Each fixation's list: itself and all that touch it. The lists are used up as groups are made of them.
class Neighbourhoods {
public:
    /// @param progress  gets a step for each fixation.
    Neighbourhoods(const QList<Fixation> &fixations, Progress &progress)
        : m_touching(static_cast<size_t>(fixations.size()), std::vector<bool>(static_cast<size_t>(fixations.size())))
        , m_sizes(m_touching.size(), 1)
        , m_left(m_touching.size())
    {
        std::vector<FixationOutline> outlines;
        for (const Fixation &fixation : fixations) {
            outlines.emplace_back(fixation);
            Progress::refresh();
        }
        for (size_t i = 0; i < outlines.size(); ++i) {
            for (size_t j = i + 1; j < outlines.size(); ++j) { // touching is mutual
                if (outlines[i].touches(outlines[j]))
                    join(i, j);
            }
            progress.advance();
        }
    }

    size_t listsLeft() const { return m_left; }

    /// The members of the longest list, the first among equals: the one it belongs to, then the others ascending. This
    /// and every other list that has any of them is used up as a whole. What else those hold does not join the group,
    /// though it may still come in with another list. That is kept; the textbook form, connected components, joins it.
    std::vector<size_t> takeLongest()
    {
        const auto longest = std::max_element(m_sizes.cbegin(), m_sizes.cend());
        const auto first = static_cast<size_t>(longest - m_sizes.cbegin());
        std::vector<size_t> members{first};
        for (size_t other = 0; other < m_sizes.size(); ++other) {
            if (m_touching[first][other])
                members.push_back(other);
        }
        for (const size_t member : members) {
            useUp(member);
            for (size_t other = 0; other < m_sizes.size(); ++other) {
                if (m_touching[member][other])
                    useUp(other);
            }
            Progress::refresh();
        }
        return members;
    }

private:
    void join(size_t a, size_t b)
    {
        m_touching[a][b] = m_touching[b][a] = true;
        ++m_sizes[a];
        ++m_sizes[b];
    }

    void useUp(size_t list)
    {
        m_left -= m_sizes[list] > 0 ? 1 : 0;
        m_sizes[list] = 0;
    }

    std::vector<std::vector<bool>> m_touching;
    std::vector<int> m_sizes; ///< of the lists; 0 for those that are used up
    size_t m_left;
};

/// In single precision, which is kept: from sums of 2^24 on it differs from the exact mean.
QPoint centreOf(const QList<Fixation> &members)
{
    float sumX = 0;
    float sumY = 0;
    for (const Fixation &member : members) {
        sumX += static_cast<float>(member.mean.x());
        sumY += static_cast<float>(member.mean.y());
    }
    const auto count = static_cast<float>(members.size());
    return {truncated(static_cast<double>(sumX / count)), truncated(static_cast<double>(sumY / count))};
}

void build(EyeData &stream, const IsCluster &isCluster)
{
    QList<Fixation> &fixations = stream.scanpath;
    if (fixations.isEmpty())
        return;
    for (Fixation &fixation : fixations)
        fixation.cluster = 0;
    Progress progress(QStringLiteral("Calculating the Clusters, please wait."), static_cast<int>(fixations.size()));
    Neighbourhoods neighbourhoods(fixations, progress);
    // The count of rounds is compared with the number of lists that are left. One grows and the other shrinks, so that
    // the last lists are never taken up, and their fixations keep 0. That is kept; the plain form goes on to the end.
    size_t rounds = 0;
    do {
        QList<Fixation> members;
        for (const size_t place : neighbourhoods.takeLongest()) {
            Fixation &fixation = fixations[static_cast<qsizetype>(place)];
            fixation.cluster = static_cast<int>(rounds) + 1;
            members << fixation;
        }
        if (isCluster(members))
            stream.fixationClusters << FixationCluster(members, centreOf(members));
        ++rounds;
        Progress::refresh();
    } while (rounds + 1 < neighbourhoods.listsLeft());
}

/// The fixation in the middle does not count.
bool isLargeEnough(const QList<Fixation> &members, int minimum)
{
    return members.size() - 1 >= minimum;
}

/// How many examinations have at least the minimum among the members. Places are those in the list of all examinations,
/// but only those below the number of checked ones are counted. Kept: where an unchecked examination stands before a
/// checked one, the last checked ones are not counted; the plain form would count each.
int examinationsWithMinimum(const QList<Fixation> &members, int minimum, int examinations)
{
    std::vector<int> counts(static_cast<size_t>(std::max(examinations, 0)));
    for (const Fixation &member : members) {
        if (member.examination >= 0 && member.examination < examinations)
            ++counts[static_cast<size_t>(member.examination)];
    }
    return static_cast<int>(std::count_if(counts.cbegin(), counts.cend(), [&](int count) { return count >= minimum; }));
}

} // namespace

void buildOverlapClusters(EyeData &stream, const OverlapClusterParameters &parameters)
{
    build(stream, [&](const QList<Fixation> &members) { return isLargeEnough(members, parameters.minimumFixations); });
}

void buildPooledOverlapClusters(EyeData &stream, const OverlapClusterParameters &parameters, int examinations)
{
    if (!parameters.outliers) {
        buildOverlapClusters(stream, parameters);
        return;
    }
    const int minimum = parameters.minimumFixations;
    const qint64 needed = qint64(examinations) - *parameters.outliers;
    build(stream, [&](const QList<Fixation> &members) {
        return isLargeEnough(members, minimum) && examinationsWithMinimum(members, minimum, examinations) >= needed;
    });
}
