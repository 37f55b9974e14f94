// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

/// The kinds of data that are drawn, each with a panel and parameters of its own. The value is the number of the kind
/// in `VisualizationWidget::sigExportheatmap`.
enum class DataKind { GazePoints = 0, Fixations = 1, Clusters = 2, Saccades = 3 };
inline constexpr std::array allDataKinds{DataKind::GazePoints, DataKind::Fixations, DataKind::Clusters,
                                         DataKind::Saccades};

/// One value for each kind.
template <class T>
class ByDataKind {
public:
    std::array<T, allDataKinds.size()> values{};

    T &operator[](DataKind kind) { return values[static_cast<std::size_t>(kind)]; }
    const T &operator[](DataKind kind) const { return values[static_cast<std::size_t>(kind)]; }
    bool operator==(const ByDataKind &) const = default;
};
