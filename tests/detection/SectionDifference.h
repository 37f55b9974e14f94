// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ScanpathSection.h"

#include <algorithm>
#include <cmath>

/// What two sections, or two lists of them, differ in; empty if in nothing that the detectors decide. Numbers that
/// are none count as equal.
inline QString differenceOf(const ScanpathSection &a, const ScanpathSection &b)
{
    const auto sameSample = [](const GazePoint &p, const GazePoint &q) {
        const auto same = [](double v, double w) { return v == w || (std::isnan(v) && std::isnan(w)); };
        return p.time == q.time && same(p.x, q.x) && same(p.y, q.y) && p.validFlag == q.validFlag;
    };
    if (!std::equal(a.samples.cbegin(), a.samples.cend(), b.samples.cbegin(), b.samples.cend(), sameSample))
        return QStringLiteral("samples");
    if (a.mean != b.mean)
        return QStringLiteral("mean");
    if (a.number != b.number || a.type != b.type || a.timeSorted != b.timeSorted)
        return QStringLiteral("number or type");
    return a.median == b.median && a.variance == b.variance ? QString() : QStringLiteral("median or variance");
}

template <class Section>
QString differenceOf(const QList<Section> &a, const QList<Section> &b)
{
    if (a.size() != b.size())
        return QStringLiteral("%1 sections, %2 in the plain form").arg(a.size()).arg(b.size());
    for (qsizetype i = 0; i < a.size(); ++i) {
        const QString difference = differenceOf(a[i], b[i]);
        if (!difference.isEmpty())
            return QStringLiteral("section %1: %2").arg(i).arg(difference);
    }
    return {};
}
