// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/TransitionMeasures.h"

#include "statistics/RequiredForms.h"

#include <cmath>
#include <numeric>

namespace {

struct Spread {
    double mean = 0;
    double deviation = 0; ///< of all values, not of a sample of them
};

Spread spreadOf(const QList<double> &values)
{
    if (values.isEmpty())
        return {};
    const auto count = static_cast<double>(values.size());
    const double mean = std::accumulate(values.cbegin(), values.cend(), 0.0) / count;
    const double squares = std::accumulate(values.cbegin(), values.cend(), 0.0, [&](double sum, double value) {
        return sum + (mean - value) * (mean - value);
    });
    return {mean, std::sqrt(squares / count)};
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
    const Spread time = spreadOf(timesBetween(transitions.times[cluster]));
    const Spread length = spreadOf(transitions.lengths[cluster]);
    return {required::fewestInWindow(transitions.times[cluster]), time.mean, time.deviation, length.mean,
            length.deviation};
}
