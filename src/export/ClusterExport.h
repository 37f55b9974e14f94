// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"
#include "model/TimeFrame.h"

/// What the clusters file holds of one stream of one examination: a header and a row for each cluster that lies wholly
/// in the frame, or one line that says that there are none, then how they were calculated and who was recorded.
///
/// Numbers have a decimal point. Texts stand in double quotes as they are: a quote in them is not escaped.
QString clusterBlock(const Examination &examination, const EyeData &stream, TimeFrame frame);

/// What the cumulative clusters file holds of one pooled container of the model: a header, a row for each cluster with
/// the subjects whose fixations it has, then how they were calculated. There is no time frame, and no one subject: its
/// column is empty.
QString cumulativeClusterBlock(const DataModel &model, const EyeData &pooled);
