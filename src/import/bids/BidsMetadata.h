// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableLayout.h"
#include "model/Eye.h"

#include <QJsonObject>

/// What the description of a table of samples says.
struct BidsEyeTable {
    bool operator==(const BidsEyeTable &) const = default;

    Eye eye = Eye::Left; ///< mean stands for "cyclopean"
    /// The samples are those of its left eye; what was recorded while there was no gaze, those of its right eye.
    TableLayout layout;
    double startMs = 0;    ///< of the first sample where samples have no times; 0 where they have, since those tell it
    QString recordingName; ///< as Vistrum writes it; empty in data sets of others
    QStringList setFile;   ///< the same
};

/// The columns of a table of events; 0 for one that there is not.
struct BidsEventColumns {
    bool operator==(const BidsEventColumns &) const = default;

    int onset = 0; ///< number from 1
    int duration = 0;
    int type = 0;
    int x = 0; ///< of the place, px
    int y = 0;
    int samples = 0;
    double onsetMs = 1; ///< length of the unit of the onset in ms
    double durationMs = 1;
};

/// Whether samples are those of an eye tracker; what does not say so is no eye tracking.
bool isEyeTracking(const QJsonObject &samples);

/// Reads what stands beside samples.
///
/// @param samples  all that holds for them, from nearer and farther files.
/// @param screen   the same of the run's list of stimuli; only places in other units than px need it.
/// @param file     of the samples' description, for the problem's text. A key that is missing, or holds what nobody can
///                 read, is a problem that names it.
std::variant<BidsEyeTable, TableProblem> bidsEyeTable(const QJsonObject &samples, const QJsonObject &screen,
                                                      const QString &file);

/// Reads what stands beside events.
/// @param timeUnit  of the samples, for onsets without a unit of their own.
std::variant<BidsEventColumns, TableProblem> bidsEventColumns(const QJsonObject &events, TableTimeUnit timeUnit,
                                                              const QString &file);
