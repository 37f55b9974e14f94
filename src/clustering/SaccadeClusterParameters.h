#pragma once

#include "clustering/ClusterTree.h"
#include "clustering/SaccadeDistance.h"

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

/// One parameter and the stage of the calculation that reads it: what was done before that stage stays valid.
template <class T>
struct StagedParameter {
    T SaccadeClusterParameters::*member;
    int stage;
};

namespace stagedrows {

using P = SaccadeClusterParameters;
inline constexpr StagedParameter<int> minimumLength{&P::minimumLength, 0};
inline constexpr StagedParameter<int> minimumAngleDifference{&P::minimumAngleDifference, 0};
inline constexpr StagedParameter<int> distanceCutoff{&P::distanceCutoff, 6};
inline constexpr StagedParameter<int> angleCutoff{&P::angleCutoff, 3};
inline constexpr StagedParameter<int> minimumAngleQuantity{&P::minimumAngleQuantity, 3};
inline constexpr StagedParameter<int> minimumDistanceQuantity{&P::minimumDistanceQuantity, 6};
inline constexpr StagedParameter<int> distanceLinkage{&P::distanceLinkage, 5};
inline constexpr StagedParameter<int> angleLinkage{&P::angleLinkage, 2};
inline constexpr StagedParameter<int> distanceAlgorithm{&P::distanceAlgorithm, 4};
inline constexpr StagedParameter<bool> directionDependent{&P::directionDependent, 1};

} // namespace stagedrows
