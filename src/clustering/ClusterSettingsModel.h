// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/Parameter.h"

/// The parameters of the cluster detectors. The two values of the overlap method are not stored and stay in the panel.
struct ClusterSettingsModel {
    bool operator==(const ClusterSettingsModel &) const = default;

    int calculationType = 0; ///< 0 standard, 1 mean-shift, 2 overlap
    int standardMinimumFixations = 0;
    int standardOverlapAllowed = 0; ///< percent
    int standardMaximumRadius = 0;  ///< px
    double meanShiftRadius = 0;     ///< px
    double meanShiftGradient = 0;   ///< rate of the descent, a share of each step
    int meanShiftIterations = 0;
    int meanShiftMinimumFixations = 0;
};

/// Keys, values at construction, texts and names of the commands.
namespace rows {

using Qt::StringLiterals::operator""_L1;
using Cluster = ClusterSettingsModel;
inline constexpr Parameter clusterCalculationType{&Cluster::calculationType, "Calculation/Cluster/CalculationType"_L1,
                                                  0, "Cluster calculation type changed: %1"_L1,
                                                  "CommandChangeClusterControlCalculationType"_L1};
inline constexpr Parameter clusterStandardMinimumFixations{
    &Cluster::standardMinimumFixations, "Calculation/Cluster/Standard/MinimumFixations"_L1, 5,
    "Cluster standard minimum fixations changed: %1"_L1, "CommandChangeClusterControlStandardMinimumFixation"_L1};
inline constexpr Parameter clusterStandardOverlapAllowed{
    &Cluster::standardOverlapAllowed, "Calculation/Cluster/Standard/OverlapAllowed"_L1, 0,
    "Cluster standard overlap changed: %1"_L1, "CommandChangeClusterControlStandardOverlap"_L1};
inline constexpr Parameter clusterStandardMaximumRadius{
    &Cluster::standardMaximumRadius, "Calculation/Cluster/Standard/MaximumRadius"_L1, 100,
    "Cluster standard maximum radius changed: %1"_L1, "CommandChangeClusterControStandardlMaximumRadius"_L1}; // sic
inline constexpr Parameter clusterMeanShiftRadius{&Cluster::meanShiftRadius, "Calculation/Cluster/Meanshift/Radius"_L1,
                                                  100.0, "Cluster mean-shift radius changed: %1"_L1,
                                                  "CommandChangeClusterControlMeanShiftSearchRadius"_L1};
inline constexpr Parameter clusterMeanShiftGradient{&Cluster::meanShiftGradient,
                                                    "Calculation/Cluster/Meanshift/Gradient"_L1, 0.1,
                                                    "Cluster mean-shift gradient descent rate changed: %1"_L1,
                                                    "CommandChangeClusterControlMeanShiftGradientDescentRate"_L1};
inline constexpr Parameter clusterMeanShiftIterations{
    &Cluster::meanShiftIterations, "Calculation/Cluster/Meanshift/Iterations"_L1, 100,
    "Cluster mean-shift maximum iterations changed: %1"_L1, "CommandChangeClusterControlMeanShiftMaximumIterations"_L1};
inline constexpr Parameter clusterMeanShiftMinimumFixations{
    &Cluster::meanShiftMinimumFixations, "Calculation/Cluster/Meanshift/MinFixations"_L1, 3,
    "Cluster mean-shift minimum fixations changed: %1"_L1, "CommandChangeClusterControlMeanShiftMinimumFixations"_L1};
inline constexpr auto cluster =
    std::tie(clusterCalculationType, clusterStandardMinimumFixations, clusterStandardOverlapAllowed,
             clusterStandardMaximumRadius, clusterMeanShiftRadius, clusterMeanShiftGradient, clusterMeanShiftIterations,
             clusterMeanShiftMinimumFixations);

} // namespace rows
