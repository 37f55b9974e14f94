// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/TransitionMeasures.h"

#include "base/Averages.h"
#include "statistics/RequiredForms.h"

#include <cmath>

namespace {

Spread spreadOrZeros(const QList<double> &values)
{
    return values.isEmpty() ? Spread{0, 0} : spreadOf(values);
}

QList<double> timesBetween(const QList<qint64> &times)
{
    QList<double> between;
    for (qsizetype i = 1; i < times.size(); ++i)
        between << std::abs(static_cast<double>(times[i]) - static_cast<double>(times[i - 1]));
    return between;
}

} // namespace

ClusterSpread clusterSpread(const ClusterTransitions &transitions, qsizetype cluster)
{
    const Spread time = spreadOrZeros(timesBetween(transitions.times[cluster]));
    const Spread length = spreadOrZeros(transitions.lengths[cluster]);
    return {required::fewestInWindow(transitions.times[cluster]), time.mean, time.deviation, length.mean,
            length.deviation};
}
