// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/DistinctShapes.h"

#include <algorithm>

namespace {

std::size_t hashOf(const EllipseShape &shape)
{
    return qHashMulti(0, shape.center.x(), shape.center.y());
}

std::size_t hashOf(const OvalShape &shape)
{
    return qHashMulti(0, shape.rect.x(), shape.rect.y());
}

std::size_t hashOf(const RasterShape &shape)
{
    return qHash(shape.image.cacheKey());
}

std::size_t hashOf(const ArrowShape &shape)
{
    return qHashMulti(0, shape.from.x(), shape.from.y(), shape.to.x(), shape.to.y());
}

std::size_t hashOf(const LineShape &shape)
{
    return qHashMulti(0, shape.line.x1(), shape.line.y1(), shape.line.x2(), shape.line.y2());
}

std::size_t hashOf(const TextShape &shape)
{
    return qHashMulti(0, shape.top.x(), shape.top.y(), shape.text);
}

std::size_t hashOf(const PolygonShape &shape)
{
    const QPointF center = shape.polygon.boundingRect().center();
    return qHashMulti(0, center.x(), center.y());
}

std::size_t hashOf(const AreaShape &shape)
{
    return qHash(shape.index);
}

} // namespace

Drawing DistinctShapes::take(const Drawing &drawing)
{
    Drawing distinct;
    for (const Shape &shape : drawing) {
        const std::size_t hash = std::visit([](const auto &kind) { return hashOf(kind); }, shape);
        const auto [first, last] = m_taken.equal_range(hash);
        if (std::any_of(first, last, [&](const auto &taken) { return taken.second == shape; }))
            continue;
        m_taken.emplace(hash, shape);
        distinct << shape;
    }
    return distinct;
}
