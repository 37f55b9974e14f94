// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/ClusterTree.h"

#include "base/Progress.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

int linked(int a, int b, Linkage linkage)
{
    switch (linkage) {
    case Linkage::Average:
        return static_cast<int>((qint64(a) + b) / 2);
    case Linkage::Maximum:
        return std::max(a, b);
    case Linkage::Minimum:
        break;
    }
    return std::min(a, b);
}

/// The nodes that are left, each in a slot of the matrix; a new node takes the slot of one of the two it is made of.
class Agglomeration {
public:
    Agglomeration(DistanceMatrix &&distances, Linkage linkage)
        : m_distances(std::move(distances))
        , m_linkage(linkage)
        , m_rows(m_distances.size())
        , m_order(m_distances.size())
        , m_nextNumber(m_distances.size())
    {
        std::iota(m_order.begin(), m_order.end(), size_t(0));
        for (size_t i = 0; i < m_rows.size(); ++i)
            m_rows[i].number = i;
        for (size_t i = 0; i + 1 < m_order.size(); ++i)
            findNearest(i);
    }

    Merge joinNearest()
    {
        const size_t left = m_order[firstOfNearestRows()];
        const size_t right = m_rows[left].nearest;
        const Merge merge{m_rows[left].number, m_rows[right].number, m_rows[left].bound};
        std::erase_if(m_order, [&](size_t slot) { return slot == left || slot == right; });
        for (const size_t slot : m_order)
            link(slot, left, right);
        m_rows[left] = {.number = m_nextNumber++};
        m_order.push_back(left); // the newest stands last in row order
        return merge;
    }

private:
    static constexpr size_t unknown = std::numeric_limits<size_t>::max();

    /// What is known of the distances in a row, those to the later nodes.
    struct Row {
        size_t number = 0;
        size_t nearest = unknown;                    ///< slot of the first of the nearest
        int bound = std::numeric_limits<int>::max(); ///< no distance is less; where `nearest` is known, its distance
    };

    /// A row whose nearest node has gone keeps the old distance as a bound: what has joined is never nearer than the
    /// nearer of its parts. The row is looked through again only when it might be the one.
    size_t firstOfNearestRows()
    {
        for (;;) {
            const auto last = m_order.end() - 1;
            const auto first = std::min_element(
                m_order.begin(), last, [this](size_t a, size_t b) { return m_rows[a].bound < m_rows[b].bound; });
            const auto place = static_cast<size_t>(first - m_order.begin());
            if (m_rows[*first].nearest != unknown)
                return place;
            findNearest(place);
        }
    }

    void findNearest(size_t place)
    {
        const size_t slot = m_order[place];
        Row &row = m_rows[slot];
        row.nearest = unknown;
        for (size_t i = place + 1; i < m_order.size(); ++i) {
            const int distance = m_distances.at(slot, m_order[i]);
            if (row.nearest == unknown || distance < row.bound) {
                row.nearest = m_order[i];
                row.bound = distance;
            }
        }
    }

    /// The new node comes last: at an equal distance the earlier one stays the nearest.
    void link(size_t slot, size_t left, size_t right)
    {
        const int distance = linked(m_distances.at(slot, left), m_distances.at(slot, right), m_linkage);
        m_distances.at(slot, left) = distance;
        Row &row = m_rows[slot];
        if (row.nearest == left || row.nearest == right)
            row.nearest = unknown;
        if (distance < row.bound) {
            row.bound = distance;
            row.nearest = left;
        }
    }

    DistanceMatrix m_distances; ///< by slots
    const Linkage m_linkage;
    std::vector<Row> m_rows;     ///< by slots
    std::vector<size_t> m_order; ///< slots of the nodes that are left, in the order of their numbers
    size_t m_nextNumber;
};

} // namespace

std::vector<Merge> agglomerate(DistanceMatrix distances, Linkage linkage, Progress &progress)
{
    std::vector<Merge> merges;
    if (distances.size() < 2)
        return merges;
    const size_t joins = distances.size() - 1;
    merges.reserve(joins);
    Agglomeration agglomeration(std::move(distances), linkage);
    while (merges.size() < joins) {
        merges.push_back(agglomeration.joinNearest());
        progress.advance();
    }
    return merges;
}

ClusterTree::ClusterTree(const QList<SaccadeVector> &vectors, const std::vector<Merge> &merges)
    : m_vectors(static_cast<size_t>(vectors.size()))
    , m_nodes(m_vectors.size() + merges.size())
{
    const size_t leaves = m_vectors.size();
    std::vector<size_t> counts(m_nodes.size(), 1);
    for (size_t i = 0; i < merges.size(); ++i) {
        counts[leaves + i] = counts[merges[i].left] + counts[merges[i].right];
        m_nodes[leaves + i].left = &m_nodes[merges[i].left];
        m_nodes[leaves + i].right = &m_nodes[merges[i].right];
        m_nodes[leaves + i].height = merges[i].height;
    }
    std::vector<size_t> firsts(m_nodes.size(), 0); // from the root downwards
    for (size_t i = merges.size(); i-- > 0;) {
        firsts[merges[i].left] = firsts[leaves + i];
        firsts[merges[i].right] = firsts[leaves + i] + counts[merges[i].left];
    }
    for (size_t i = 0; i < leaves; ++i)
        m_vectors[firsts[i]] = vectors[static_cast<qsizetype>(i)];
    for (size_t i = 0; i < m_nodes.size(); ++i)
        m_nodes[i].vectors = std::span(m_vectors).subspan(firsts[i], counts[i]);
}

QList<QList<SaccadeVector>> cutTree(const ClusterNode &root, int cutoff, int minimum)
{
    QList<QList<SaccadeVector>> clusters;
    std::vector<const ClusterNode *> pending{&root}; // a tree can be as high as it has leaves
    while (!pending.empty()) {
        const ClusterNode &node = *pending.back();
        pending.pop_back();
        if (node.height > cutoff && node.left) {
            pending.push_back(node.right);
            pending.push_back(node.left);
        } else if (std::ssize(node.vectors) >= minimum) {
            clusters << QList<SaccadeVector>(node.vectors.begin(), node.vectors.end());
        }
    }
    return clusters;
}
