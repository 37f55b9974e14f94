// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/ExportResult.h"
#include "model/AreaOfInterest.h"

/// Writes the thumbnail of each area to FOLDER/NAME.png, without a message. An area whose name would leave the folder,
/// or that has no thumbnail, is refused.
ExportResult exportAoiImages(const QList<AreaOfInterest> &areas, const QString &folder);
