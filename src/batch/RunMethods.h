// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/MethodsRecord.h"

struct RunState;

/// What a methods section says of the run.
///
/// @param quality  of all recordings of the run.
/// @param failed   names of the recordings that could not be read.
MethodsRecord methodsOf(const RunState &run, const QList<StreamQuality> &quality, const QStringList &failed);
