// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"

/// The place of a recording in a BIDS data set.
struct BidsName {
    bool operator==(const BidsName &) const = default;

    QString folder() const; ///< "sub-S01/beh/"
    QString stem() const;   ///< "sub-S01_task-viewing_run-1"

    QString subject; ///< label, letters and digits only, as those below
    QString task;
    int run = 1; ///< number among the recordings of subject and task
};

struct BidsNames {
    QList<BidsName> names; ///< of the examinations, in their order
    QStringList remarks;   ///< what had to be renamed, a sentence each
};

/// The letters and digits of ASCII of a text; what else it holds is left out.
QString bidsLabel(const QString &text);

/// Names after the subject's id, or the recording where it has none, after its entry "task", and a running number. No
/// two subjects share a label: of equal ones the later ones get a number.
BidsNames bidsNames(const QList<const Examination *> &examinations);
