// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <nanoflann.hpp>

#include <cmath>
#include <limits>
#include <vector>

/// A place in the plane.
struct PlanePoint {
    double x = 0;
    double y = 0;
};

/// Finds the points near a place without looking at all of them. The coordinates must be finite.
class PointIndex {
public:
    explicit PointIndex(std::vector<PlanePoint> points) : m_cloud{std::move(points)}, m_tree(2, m_cloud, {}) {}
    PointIndex(const PointIndex &) = delete; // the tree refers to the points
    PointIndex &operator=(const PointIndex &) = delete;

    /// Places in the list of all points not farther away than the distance, in no particular order.
    std::vector<size_t> within(PlanePoint from, double distance) const
    {
        // The search finds points whose squared distance is below its limit. A point at exactly the distance is wanted,
        // too, so that the limit is the next larger number.
        const double limit = std::nextafter(distance * distance, std::numeric_limits<double>::infinity());
        const double query[] = {from.x, from.y};
        std::vector<std::pair<size_t, double>> found;
        m_tree.radiusSearch(query, limit, found, nanoflann::SearchParams(0, 0, false));
        std::vector<size_t> places;
        places.reserve(found.size());
        for (const auto &[place, squaredDistance] : found)
            places.push_back(place);
        return places;
    }

private:
    /// The list of points in the form that the search tree of the library demands.
    struct Cloud {
        size_t kdtree_get_point_count() const { return points.size(); }
        double kdtree_get_pt(size_t place, size_t axis) const { return axis == 0 ? points[place].x : points[place].y; }
        template <class Box>
        bool kdtree_get_bbox(Box &) const
        {
            return false;
        }

        std::vector<PlanePoint> points;
    };
    using Distance = nanoflann::L2_Simple_Adaptor<double, Cloud>;

    Cloud m_cloud;
    nanoflann::KDTreeSingleIndexAdaptor<Distance, Cloud, 2, size_t> m_tree;
};
