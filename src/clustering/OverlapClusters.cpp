#include "clustering/OverlapClusters.h"

#include "base/Progress.h"
#include "base/TextFormat.h"
#include "clustering/FixationOutline.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace {

/// Places of fixations in the stream: one and all that touch it, itself first, the others ascending.
using Neighbourhood = std::vector<int>;
using IsCluster = std::function<bool(const QList<Fixation> &)>;

std::vector<Neighbourhood> neighbourhoodsOf(const QList<Fixation> &fixations)
{
    const std::vector<FixationOutline> outlines(fixations.cbegin(), fixations.cend());
    const int count = static_cast<int>(outlines.size());
    Progress progress(QStringLiteral("Calculating the Clusters, please wait."), count);
    // Touching is mutual: each pair is looked at once. The others come in ascending order all the same, as all pairs
    // with an earlier first one are done before.
    std::vector<Neighbourhood> touching(outlines.size());
    for (int i = 0; i < count; ++i) {
        const auto first = static_cast<size_t>(i);
        for (int j = i + 1; j < count; ++j) {
            const auto second = static_cast<size_t>(j);
            if (!outlines[first].touches(outlines[second]))
                continue;
            touching[first].push_back(j);
            touching[second].push_back(i);
        }
        touching[first].insert(touching[first].begin(), i);
        progress.tick();
    }
    return touching;
}

Neighbourhood takeLongest(std::vector<Neighbourhood> &neighbourhoods)
{
    const auto longest =
        std::max_element(neighbourhoods.begin(), neighbourhoods.end(),
                         [](const Neighbourhood &a, const Neighbourhood &b) { return a.size() < b.size(); });
    Neighbourhood taken = std::move(*longest);
    neighbourhoods.erase(longest);
    return taken;
}

/// A list with any fixation of the current group is dropped as a whole. What else it holds does not join the group: it
/// never did, and the clusters in users' results rest on it. It may still come in with another list.
void dropTouched(std::vector<Neighbourhood> &neighbourhoods, const QList<Fixation> &fixations, int group)
{
    std::erase_if(neighbourhoods, [&](const Neighbourhood &each) {
        return std::any_of(each.cbegin(), each.cend(), [&](int place) { return fixations[place].cluster == group; });
    });
}

QList<Fixation> membersOf(const Neighbourhood &group, const QList<Fixation> &fixations)
{
    QList<Fixation> members;
    for (const int place : group)
        members << fixations[place];
    return members;
}

/// In single precision, as ever: with many fixations it differs from the exact mean.
QPoint centreOf(const QList<Fixation> &members)
{
    float sumX = 0;
    float sumY = 0;
    for (const Fixation &member : members) {
        sumX += static_cast<float>(member.mean.x());
        sumY += static_cast<float>(member.mean.y());
    }
    const auto count = static_cast<float>(members.size());
    return {text::truncated(static_cast<double>(sumX / count)), text::truncated(static_cast<double>(sumY / count))};
}

void build(EyeData &stream, const IsCluster &isCluster)
{
    QList<Fixation> &fixations = stream.scanpath;
    if (fixations.isEmpty())
        return;
    for (Fixation &fixation : fixations)
        fixation.cluster = 0;
    std::vector<Neighbourhood> neighbourhoods = neighbourhoodsOf(fixations);
    // The count of rounds is compared with the number of lists that are left, and both change: the last lists are never
    // taken up, and their fixations keep 0.
    size_t rounds = 0;
    do {
        const Neighbourhood current = takeLongest(neighbourhoods);
        const int group = static_cast<int>(rounds) + 1;
        for (const int place : current)
            fixations[place].cluster = group;
        dropTouched(neighbourhoods, fixations, group);
        const QList<Fixation> members = membersOf(current, fixations);
        if (isCluster(members))
            stream.fixationClusters << FixationCluster(members, centreOf(members));
        ++rounds;
        Progress::refresh();
    } while (rounds + 1 < neighbourhoods.size());
}

/// The fixation in the middle does not count.
bool isLargeEnough(const QList<Fixation> &members, int minimum)
{
    return members.size() - 1 >= minimum;
}

/// How many examinations have at least the minimum among the members. Places are those in the list of all examinations,
/// but only those below the number of checked ones are counted: users check from the top.
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
