// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterTree.h"
#include "clustering/SaccadeDistance.h"

#include <QLatin1StringView>

#include <tuple>

/// What counts as a recurring movement. These values are not stored and last as long as the program.
struct SaccadeClusterParameters {
    bool operator==(const SaccadeClusterParameters &) const = default;

    int minimumLength = 0;          ///< px
    int minimumAngleDifference = 0; ///< degrees
    int distanceCutoff = 25;        ///< px
    int angleCutoff = 10;           ///< degrees
    int minimumAngleQuantity = 10;
    int minimumDistanceQuantity = 1;
    int distanceLinkage = static_cast<int>(Linkage::Minimum);
    int angleLinkage = static_cast<int>(Linkage::Maximum);
    int distanceAlgorithm = static_cast<int>(DistanceAlgorithm::Euclidean);
    bool directionDependent = true;
};

/// What is to be done next; with `Done` all is.
enum class SaccadeClusterStage {
    PreProcessing,
    AngleMatrix,
    AngleTree,
    AngleClusters,
    DistanceMatrix,
    DistanceTree,
    DistanceClusters,
    Done
};

/// A whole number that a form shows: what people call it and which values it may have. A choice has words with commas
/// in between instead, each standing for its place.
struct NumberRange {
    QLatin1StringView name;
    int least = 0;
    int most = 0;
    QLatin1StringView words = {};
};

/// One parameter and the stage of the calculation that reads it: what was done before that stage stays valid.
template <class T>
struct StagedParameter {
    T SaccadeClusterParameters::*member;
    SaccadeClusterStage stage;
    NumberRange range;
};

namespace stagedrows {

using P = SaccadeClusterParameters;
using Stage = SaccadeClusterStage;
using Text = QLatin1StringView;
inline constexpr Text flags("no,yes");
inline constexpr Text linkages("average,maximum,minimum");
inline constexpr Text algorithms("euclidean,manhattan");
inline constexpr int manyVectors = 1'000'000;

inline constexpr StagedParameter<int> minimumLength{
    &P::minimumLength, Stage::PreProcessing, {Text("minimum-length"), 0, 10'000}};
inline constexpr StagedParameter<int> minimumAngleDifference{
    &P::minimumAngleDifference, Stage::PreProcessing, {Text("minimum-angle-difference"), 0, 90}};
inline constexpr StagedParameter<bool> directionDependent{
    &P::directionDependent, Stage::AngleMatrix, {Text("direction-dependent"), 0, 1, flags}};
inline constexpr StagedParameter<int> angleLinkage{
    &P::angleLinkage, Stage::AngleTree, {Text("angle-linkage"), 0, 2, linkages}};
inline constexpr StagedParameter<int> angleCutoff{
    &P::angleCutoff, Stage::AngleClusters, {Text("angle-cutoff"), 0, 180}};
inline constexpr StagedParameter<int> minimumAngleQuantity{
    &P::minimumAngleQuantity, Stage::AngleClusters, {Text("minimum-angle-quantity"), 1, manyVectors}};
inline constexpr StagedParameter<int> distanceAlgorithm{
    &P::distanceAlgorithm, Stage::DistanceMatrix, {Text("distance"), 0, 1, algorithms}};
inline constexpr StagedParameter<int> distanceLinkage{
    &P::distanceLinkage, Stage::DistanceTree, {Text("distance-linkage"), 0, 2, linkages}};
inline constexpr StagedParameter<int> distanceCutoff{
    &P::distanceCutoff, Stage::DistanceClusters, {Text("distance-cutoff"), 0, 1000}};
inline constexpr StagedParameter<int> minimumDistanceQuantity{
    &P::minimumDistanceQuantity, Stage::DistanceClusters, {Text("minimum-distance-quantity"), 1, 100}};

/// All of them, in the order of the stages.
inline constexpr auto all =
    std::tie(minimumLength, minimumAngleDifference, directionDependent, angleLinkage, angleCutoff, minimumAngleQuantity,
             distanceAlgorithm, distanceLinkage, distanceCutoff, minimumDistanceQuantity);

} // namespace stagedrows
