// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"

#include <optional>
#include <vector>

/// An ellipse at any angle, as fitted to points: `width` lies along the direction of `rotation`.
struct RotatedEllipse {
    bool operator==(const RotatedEllipse &) const = default;

    bool isEmpty() const { return !(width > 0 && height > 0); }

    double centerX = 0; ///< px
    double centerY = 0;
    double width = 0; ///< whole axes, px
    double height = 0;
    double rotation = 0; ///< degrees, clockwise on the screen
};

/// Where a point of an ellipse comes from.
struct PointSource {
    bool operator==(const PointSource &) const = default;

    QString recording; ///< base name of the examination, which is a whole path
    float widthPx = 0;
    float heightPx = 0;
    float widthMm = 0;
    float heightMm = 0;
};

/// One ellipse of a correction and the samples that were assigned to it.
struct CorrectionEllipse : RotatedEllipse {
    bool operator==(const CorrectionEllipse &) const = default;

    bool active = false;
    QList<GazePoint> points;
    QList<PointSource> sources; ///< one for each point
};

/// Where gaze was measured, and where it belongs.
struct EllipsePair {
    bool operator==(const EllipsePair &) const = default;

    CorrectionEllipse original;
    CorrectionEllipse corrected;
};

/// The ellipse that lies nearest to a stroke, with the coordinates of its places in single precision; nothing for 10
/// places or fewer, and where no ellipse of some width fits. Source: Fitzgibbon & Fisher (1995), BMVC; by OpenCV.
std::optional<RotatedEllipse> fitStroke(const std::vector<QPointF> &places);

/// A pair whose second ellipse lies 100 px to the right of and below the first.
EllipsePair newPair(const RotatedEllipse &fitted);

/// Whether a sample lies in the ellipse or on its border, compared in single precision.
bool contains(const RotatedEllipse &ellipse, double x, double y);

/// Assigns the valid samples of the frame that lie in the original ellipse to both: those of the corrected one moved as
/// its centre is, in single precision. What was assigned before goes.
void assignPoints(EllipsePair &pair, const DataModel &model, EyeMode eyes, TimeFrame frame);

/// Moves the corrected ellipse and its samples.
void moveCorrected(EllipsePair &pair, QPointF center);

/// "Ellipse 3:time(ms):0-1500"
QString ellipseText(int number, TimeFrame frame);
/// The same with another frame: what stands before the first ":" stays.
QString withFrame(const QString &text, TimeFrame frame);

/// A row of a correction ini: the text, and of centre x, centre y, width, height and rotation the original value and
/// the corrected one.
QString ellipseLine(const QString &text, const EllipsePair &pair);

struct NamedEllipses {
    QString text;
    EllipsePair pair;
};
/// Reads such a row. Nothing for a line with another number of fields, and for the line of names. A field that is no
/// number counts as 0.
std::optional<NamedEllipses> readEllipseLine(const QString &line);

/// How far two recordings lie apart at equal times, for one eye.
struct CorrectionQuality {
    double meanDistancePx = 0; ///< 0 without equal times
    qint64 equalTimes = 0;     ///< pairs of samples
};

/// Over all pairs of samples of equal time, in the order of the first list and within that of the second.
CorrectionQuality correctionQuality(const QList<GazePoint> &first, const QList<GazePoint> &second);
