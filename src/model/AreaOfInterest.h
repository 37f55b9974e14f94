// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QPolygon>
#include <QString>

/// A named polygon on the stimulus image, and what was measured in it last. A plain value: a copy is cheap until
/// written.
struct AreaOfInterest {
    /// An area without name and vertices. Each new area, though not a copy, draws its colour from the C library's
    /// generator, which nobody seeds: each run of the program gives its first, second, third area the same colours.
    AreaOfInterest();
    AreaOfInterest(QString name, QPolygon polygon);

    /// Size in px^2, whatever the direction of the vertices; 0 with fewer than three. Sums are of single precision,
    /// which is kept: beyond 2^24 the last digits are rounded, where whole numbers would be exact.
    float area() const;

    /// Mean of the vertices (not of the surface), each coordinate truncated towards zero; (0,0) without vertices.
    QPoint centroid() const;

    /// Whether the position lies inside. Of the edge, the left and upper side count as inside, the right and lower side
    /// do not. Where the polygon crosses itself the rule decides.
    bool contains(QPoint position, Qt::FillRule rule) const { return polygon.containsPoint(position, rule); }
    /// The same for a position between pixels: its coordinates are truncated towards zero first.
    bool contains(QPointF position, Qt::FillRule rule) const;

    bool operator==(const AreaOfInterest &) const = default;

    // Glances: unbroken stays of the gaze samples.
    int glanceCount = 0;
    qint64 firstInsideTime = 0;     ///< ms
    double glanceFrequency = 0;     ///< per second
    double glanceTime = 0;          ///< ms
    double glanceProportion = 0;    ///< glances per sample, percent
    double locationProbability = 0; ///< percent of the samples
    qint64 minGlance = 0;           ///< ms
    double meanGlance = 0;          ///< ms
    qint64 maxGlance = 0;           ///< ms
    double fixationFrequency = 0;   ///< per minute
    QList<qint64> glanceStarts;     ///< ms
    QList<qint64> glanceEnds;       ///< ms
    QList<qint64> glanceDurations;  ///< ms

    QColor color; ///< of the surface and of the entry in the list, with alpha
    bool enabled = true;
    QImage thumbnail;            ///< of the stimulus image, over the bounding box
    double recordingSeconds = 0; ///< length of the evaluated recording
    QString name;                ///< key of the areas in the model; null as long as none is given
    QPolygon polygon;            ///< px; the edge from the last vertex to the first is implied

    // Gaze samples.
    int pointsInside = 0;
    qint64 firstGazeTime = 0; ///< ms
    int gazeCount = 0;
    double gazePerMinute = 0;
    double gazeShare = 0;     ///< 0 to 1
    qint64 gazeTotalTime = 0; ///< ms
    qint64 gazeMinTime = 0;   ///< ms
    qint64 gazeMaxTime = 0;   ///< ms
    double gazeMeanTime = 0;  ///< ms

    // Fixations.
    qint64 firstFixationTime = 0; ///< ms
    int fixationCount = 0;
    double fixationsPerMinute = 0;
    double fixationShare = 0;     ///< 0 to 1
    qint64 fixationTotalTime = 0; ///< ms
    qint64 fixationMinTime = 0;   ///< ms
    qint64 fixationMaxTime = 0;   ///< ms
    double fixationMeanTime = 0;  ///< ms
};
