// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/SaccadeClusterModel.h"

#include "model/DataModel.h"

struct SaccadeClusterModel::Step {
    void (SaccadeClusterModel::*run)();
    void (SaccadeClusterModel::*done)();
};

/// In the order of the stages.
constexpr SaccadeClusterModel::Step SaccadeClusterModel::steps[stageCount] = {
    {&SaccadeClusterModel::preProcess, &SaccadeClusterModel::sigPreProcessingDone},
    {&SaccadeClusterModel::makeAngleMatrices, &SaccadeClusterModel::sigAngleMatrixDone},
    {&SaccadeClusterModel::makeAngleTrees, &SaccadeClusterModel::sigAngleTreeDone},
    {&SaccadeClusterModel::makeAngleClusters, &SaccadeClusterModel::sigAngleClusterDone},
    {&SaccadeClusterModel::makeDistanceMatrices, &SaccadeClusterModel::sigDistanceMatrixDone},
    {&SaccadeClusterModel::makeDistanceTrees, &SaccadeClusterModel::sigDistanceTreeDone},
    {&SaccadeClusterModel::makeDistanceClusters, &SaccadeClusterModel::sigDistanceClusterDone},
};

void SaccadeClusterModel::resetStage(Stage stage)
{
    m_stage = std::min(m_stage, stage);
}

bool SaccadeClusterModel::hasExaminations() const
{
    return m_model && !m_model->examinations().isEmpty();
}

bool SaccadeClusterModel::isOutdated() const
{
    return m_model && m_stage != Stage::PreProcessing && saccadeSource(*m_model) != m_source;
}

void SaccadeClusterModel::cluster()
{
    if (!m_model)
        return;
    if (isOutdated())
        resetStage(Stage::PreProcessing);
    for (int i = 0; i < stageCount; ++i) {
        if (m_stage == static_cast<Stage>(i) && !doStage())
            return;
    }
}

/// @return whether the next stage can follow.
bool SaccadeClusterModel::doStage()
{
    if (m_stage == Stage::AngleMatrix && !canClusterSaccades(m_vectors.size())) {
        clearFromAngleMatrices();
        return false;
    }
    const int done = static_cast<int>(m_stage);
    (this->*steps[done].run)();
    m_stage = static_cast<Stage>(done + 1);
    Q_EMIT(this->*steps[done].done)();
    return true;
}

void SaccadeClusterModel::preProcess()
{
    m_source = saccadeSource(*m_model);
    m_vectors = preProcessedVectors(m_source, {m_parameters.minimumLength, m_parameters.minimumAngleDifference});
}

/// What the old matrices hold is given back before new ones are made, so that both are never there at once.
void SaccadeClusterModel::makeAngleMatrices()
{
    clearFromAngleMatrices();
    m_angleMatrices =
        angleGroups(m_vectors, m_parameters.directionDependent ? Direction::Counts : Direction::DoesNotCount);
}

void SaccadeClusterModel::makeAngleTrees()
{
    m_angleTrees = clusterTrees(m_angleMatrices, static_cast<Linkage>(m_parameters.angleLinkage));
}

void SaccadeClusterModel::makeAngleClusters()
{
    m_angleClusters = ::angleClusters(m_angleTrees, m_parameters.angleCutoff, m_parameters.minimumAngleQuantity);
}

void SaccadeClusterModel::makeDistanceMatrices()
{
    m_distanceMatrices.clear();
    m_distanceMatrices =
        distanceGroups(m_angleClusters, static_cast<DistanceAlgorithm>(m_parameters.distanceAlgorithm));
}

void SaccadeClusterModel::makeDistanceTrees()
{
    m_distanceTrees = clusterTrees(m_distanceMatrices, static_cast<Linkage>(m_parameters.distanceLinkage));
}

void SaccadeClusterModel::makeDistanceClusters()
{
    m_distanceClusters =
        ::distanceClusters(m_distanceTrees, m_parameters.distanceCutoff, m_parameters.minimumDistanceQuantity);
}

void SaccadeClusterModel::clearFromAngleMatrices()
{
    m_angleMatrices.clear();
    m_angleTrees.clear();
    m_angleClusters.clear();
    m_distanceMatrices.clear();
    m_distanceTrees.clear();
    m_distanceClusters.clear();
}
