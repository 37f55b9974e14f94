// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/AoiTransitions.h"

#include "statistics/Quotient.h"

#include <numeric>

AoiTransitions::AoiTransitions(qsizetype areas, double perMinute)
    : m_areas(areas)
    , m_perMinute(perMinute)
    , m_counts(areas * areas)
{
}

void AoiTransitions::add(qsizetype from, qsizetype to)
{
    ++m_counts[from * m_areas + to];
}

int AoiTransitions::countOut(qsizetype from) const
{
    const auto row = m_counts.cbegin() + from * m_areas;
    return std::accumulate(row, row + m_areas, 0);
}

int AoiTransitions::total() const
{
    return std::accumulate(m_counts.cbegin(), m_counts.cend(), 0);
}

double AoiTransitions::shareOfRow(qsizetype from, qsizetype to) const
{
    return quotient(count(from, to), countOut(from));
}

double AoiTransitions::shareOfAll(qsizetype from, qsizetype to) const
{
    return quotient(count(from, to), total());
}

Places areasOf(const Fixation &fixation, const QList<AreaOfInterest> &areas, TransitionType type)
{
    Places places;
    for (qsizetype i = 0; i < areas.size(); ++i) {
        if (areas[i].contains(fixation.mean, Qt::WindingFill))
            places << i;
    }
    if (type == TransitionType::Saccades && places.size() > 1)
        places.resize(1);
    return places;
}

AoiTransitions countAoiTransitions(const QList<AreaOfInterest> &areas, const QList<GazeWalk> &walks,
                                   TransitionType type, TimeFrame frame)
{
    const auto placesOf = [&](const Fixation &fixation) { return areasOf(fixation, areas, type); };
    AoiTransitions transitions(areas.size(), frame.perMinute());
    const auto count = [&](const GazeStay &stay, const Fixation &, const Places &places) {
        for (const qsizetype from : stay.places) {
            for (const qsizetype to : places)
                transitions.add(from, to);
        }
    };
    for (const GazeWalk &walk : walks)
        followGaze(walk, frame, type, placesOf, count);
    return transitions;
}
