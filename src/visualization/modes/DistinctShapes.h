// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/shapes/Drawing.h"

#include <unordered_map>

/// Leaves out shapes that were drawn before. What several recordings have in common, such as cumulative clusters,
/// would otherwise lie over itself once for each, and lose its transparency.
class DistinctShapes {
public:
    /// The shapes of the drawing that are equal to none that was taken before, in their order.
    Drawing take(const Drawing &drawing);

private:
    std::unordered_multimap<std::size_t, Shape> m_taken; ///< by a hash of their place
};
