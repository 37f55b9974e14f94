// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/HeatmapEvents.h"

#include "base/Truncation.h"
#include "visualization/heatmap/SectionEvent.h"
#include "visualization/selection/DataSelection.h"

#include <algorithm>

namespace {

/// `showLenghtArcs` is an option of the angle stars; the heatmaps of fixations and clusters, which have no arcs, show
/// its box as "only Fixations in AOIs" and store it under the same key.
bool onlyInsideAreas(const VisualizationParameters &parameters)
{
    return parameters.showLenghtArcs;
}

template <class Visit>
void forEachEye(const DrawingContext &context, Visit visit)
{
    for (const Examination *examination : context.model.checkedExaminations()) {
        for (const Eye eye : eyesOf(context.eyeMode))
            visit(examination->stream(eye));
    }
}

bool beginsInside(const ScanpathSection &section, TimeFrame frame)
{
    return !section.samples.isEmpty() && frame.contains(section.firstTime());
}

/// How often a section at this place counts.
class Occurrences {
public:
    Occurrences(const DrawingContext &context, const VisualizationParameters &parameters)
    {
        if (onlyInsideAreas(parameters))
            m_areas = context.model.checkedAois();
    }

    std::size_t at(QPoint mean) const
    {
        if (!m_areas)
            return 1;
        return static_cast<std::size_t>(
            std::count_if(m_areas->cbegin(), m_areas->cend(),
                          [&](const AreaOfInterest &area) { return area.contains(mean, Qt::WindingFill); }));
    }

private:
    std::optional<QList<AreaOfInterest>> m_areas; ///< none where sections count wherever they are
};

template <class Section>
std::vector<FixationEvent> sectionEvents(const DrawingContext &context, QList<Section> EyeData::*sections,
                                         const VisualizationParameters &parameters)
{
    std::vector<FixationEvent> events;
    const Occurrences occurrences(context, parameters);
    forEachEye(context, [&](const EyeData &eye) {
        for (const Section &section : eye.*sections) {
            if (beginsInside(section, context.frame))
                events.insert(events.end(), occurrences.at(section.mean), sectionEvent(section));
        }
    });
    return events;
}

} // namespace

std::vector<GazePointEvent> gazePointEvents(const DrawingContext &context)
{
    std::vector<GazePointEvent> events;
    forEachEye(context, [&](const EyeData &eye) {
        for (const GazePoint &sample : eye.gazePoints) {
            if (isDrawn(sample, context.frame))
                events.push_back({truncated(sample.x), truncated(sample.y)});
        }
    });
    return events;
}

std::vector<FixationEvent> fixationEvents(const DrawingContext &context)
{
    return sectionEvents(context, &EyeData::scanpath, context.of(DataKind::Fixations));
}

std::vector<FixationEvent> clusterEvents(const DrawingContext &context)
{
    return sectionEvents(context, &EyeData::fixationClusters, context.of(DataKind::Clusters));
}

std::vector<SaccadeEvent> saccadeEvents(const DrawingContext &context)
{
    std::vector<SaccadeEvent> events;
    forEachEye(context, [&](const EyeData &eye) {
        bool startsWalk = true;
        for (const Fixation &fixation : eye.scanpath) {
            if (!beginsInside(fixation, context.frame))
                continue;
            events.push_back({fixation.mean.x(), fixation.mean.y(), fixation.duration(), startsWalk});
            startsWalk = false;
        }
    });
    return events;
}
