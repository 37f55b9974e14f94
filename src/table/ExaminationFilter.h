// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"

/// What an examination has to be like to stay checked: the value for each property, by exact comparison. The entry
/// `durationFilterKey` is about the duration instead.
using ExaminationFilter = QHash<QString, QString>;

/// Key of ">N" and "<N": only what is longer, or shorter, than N ms stays.
inline constexpr QLatin1StringView durationFilterKey("duration_filter_flag");

/// Whether one of the entries excludes the examination: it lacks the property, the value differs, or it is not long or
/// short enough. A duration of one character or without ">" and "<" excludes nothing; what is no number counts as 0.
bool isExcluded(const Examination &examination, const ExaminationFilter &filter);

/// Unchecks the examinations that the filter excludes and never checks one: what the user unchecked stays so. Samples
/// stay shared with all copies.
void applyFilter(QList<Examination> &examinations, const ExaminationFilter &filter);
