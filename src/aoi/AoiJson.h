// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/AoiFile.h"

/// Areas as JSON, which keeps all that a user gave them:
///
///     {"aois": [{"name": "Left mirror", "color": [255, 128, 0, 150], "enabled": true,
///                "polygon": [[10, 20], [110, 20], [110, 90]]}]}
///
/// Colours are red, green, blue and alpha from 0 to 255. Colour, alpha and `enabled` may be missing: the area then has
/// a random colour, alpha 255, and is enabled. The list may stand alone, without the object around it. Coordinates with
/// decimals are rounded. What has no name or no vertex is left out, and said in the remarks.
AoiFileContents parseAoiJson(const QByteArray &bytes);

/// The content of such a file.
QByteArray aoiJson(const QList<AreaOfInterest> &aois);
