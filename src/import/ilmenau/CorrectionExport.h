// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ilmenau/CorrectionEllipse.h"

/// A row of the list of ellipses.
struct NamedPair {
    QString text;
    EllipsePair pair;
};

/// The recordings that points of the ellipses come from, in the order of their first appearance.
QStringList sourcesOf(const QList<NamedPair> &ellipses);

/// The table of a recording's points for a correction program: number, original x and y, corrected x and y, in mm of
/// the stimulus: to the right from its middle and upwards from its bottom. Fields are separated by ";", numbers have a
/// decimal comma and up to six digits.
QString correctionTable(const QList<NamedPair> &ellipses, const QString &source);

/// The lines of the ellipses that have points of a recording, with the line of names before them.
QStringList ellipseLines(const QList<NamedPair> &ellipses, const QString &source);

/// The lines of a calibration ini that tell of corrections, each ended by "\\n"; empty where it cannot be read.
QString calibrationLines(const QString &iniPath);
