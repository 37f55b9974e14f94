// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/SimilarityMeasures.h"

#include <QStringList>

#include <optional>

/// The parameters of the comparison of scanpaths on the command line.
namespace similarityvalues {

QStringList names();

/// Sets what an assignment such as "recurrence-radius=80" says.
/// @return what is wrong with it, for the user; nothing is set then.
std::optional<QString> apply(const QString &assignment, SimilarityParameters &parameters);

/// All of them, as assignments with commas in between.
QString shown(const SimilarityParameters &parameters);

} // namespace similarityvalues
