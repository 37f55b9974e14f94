// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"

#include <QLatin1StringView>
#include <QList>

#include <array>

/// Number of something in the left, the right and the mean eye.
using EyeCounts = std::array<qsizetype, 3>;

/// Sum over examinations, of each stored stream.
EyeCounts countsOf(const QList<const Examination *> &examinations, qsizetype (*count)(const EyeData &));

/// "1 recording", "6 recordings"
QString recordingsText(qsizetype count);

/// Such as "Fixations in 6 recordings: left eye 118, right eye 118, mean eye 120".
QString countText(QLatin1StringView what, qsizetype recordings, const EyeCounts &counts);
