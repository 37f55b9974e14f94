// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"

#include <QString>

#include <optional>

class DataModel;

/// Clusters the fixations of all checked examinations together: the pooled containers are filled anew with copies of
/// their fixations, each with the place of its examination in the list of all, and clustered in the order dominant,
/// right, left, mean.
///
/// What was done stands in `cumulativeClusterCalculationInfo` of the model and of each checked examination. The model's
/// texts on fixations and clusters become those of the last checked examination.
/// @return false, after a message, where no examination is checked.
bool calculateCumulativeClusters(DataModel &model, const ClusterParameters &parameters);

/// Why there is no cluster where there are pooled fixations, after a calculation with these parameters: what the
/// standard method asked for, in a sentence for the user. Nothing where a single examination left the minimum as it is.
std::optional<QString> missingClusters(const DataModel &model, const ClusterParameters &parameters);

/// The minimum of the standard method for pooled fixations. It is multiplied by the number of examinations before each
/// run and keeps the product, so that with k examinations the four runs ask for k, k^2, k^3 and k^4 times the minimum.
/// That is kept; the plain form asks each run for k times the minimum and gives other clusters for the same settings.
class GrowingMinimum {
public:
    GrowingMinimum(int minimum, int examinations) : m_minimum(minimum), m_examinations(examinations) {}

    /// The minimum of the next run, at most the largest int.
    int next();

private:
    int m_minimum;
    int m_examinations;
};
