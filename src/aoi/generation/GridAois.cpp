// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/GridAois.h"

#include "aoi/generation/GeneratedName.h"
#include "model/Canvas.h"

namespace {

constexpr QSize tileSize(512, 320);

QPolygon borderOf(const QRect &tile)
{
    QPolygon border;
    for (int x = tile.left(); x <= tile.right(); ++x)
        border << QPoint(x, tile.top());
    for (int y = tile.top(); y <= tile.bottom(); ++y)
        border << QPoint(tile.right(), y);
    for (int x = tile.right(); x >= tile.left(); --x)
        border << QPoint(x, tile.bottom());
    for (int y = tile.bottom(); y >= tile.top(); --y)
        border << QPoint(tile.left(), y);
    return border;
}

} // namespace

static_assert(canvas::width % tileSize.width() == 0 && canvas::height % tileSize.height() == 0);

QList<GeneratedAoi> gridAois()
{
    QList<GeneratedAoi> aois;
    for (int x = 0; x < canvas::width; x += tileSize.width()) {
        for (int y = 0; y < canvas::height; y += tileSize.height()) {
            const auto number = static_cast<int>(aois.size() + 1);
            aois.append(
                {{generated::nameFromTwo(QLatin1StringView("GridAOI"), number), borderOf({QPoint(x, y), tileSize})},
                 generated::oldName(number)});
        }
    }
    return aois;
}
