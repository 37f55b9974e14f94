// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ScanpathSection.h"

#include <QPainterPath>

/// The filled ellipse of a fixation: its principal axes, exact, as semi-axes about its mean.
class FixationOutline {
public:
    explicit FixationOutline(const ScanpathSection &fixation);

    /// Whether the two areas intersect, or one contains the other. Of most pairs that is seen from the axes; only for
    /// the others the outlines are compared.
    bool touches(const FixationOutline &other) const;

    /// The outline in canvas pixels; empty where both axes are null.
    const QPainterPath &path() const { return m_path; }

private:
    enum class Answer { Apart, Touching, Unclear };
    Answer judged(const FixationOutline &other) const;
    double supportAlong(double x, double y) const;
    double reachAlong(double x, double y) const;

    QPoint m_mean;
    QVector2D m_major;
    QVector2D m_minor;
    QPainterPath m_path;
    QRectF m_bounds;
};
