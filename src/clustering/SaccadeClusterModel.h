// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/SaccadeClustering.h"

#include <QObject>

/// Recurring movements: the saccades of all checked examinations, grouped by direction, and within a direction by
/// place. The calculation has seven stages, and a change of a parameter has only those done again that depend on it.
class SaccadeClusterModel : public QObject {
    Q_OBJECT
public:
    using Stage = SaccadeClusterStage;
    static constexpr int stageCount = static_cast<int>(Stage::Done);

    using QObject::QObject;

    /// Where the examinations and their time span are; without a model nothing is calculated. Not owned.
    void setModel(const DataModel *model) { m_model = model; }

    const SaccadeClusterParameters &parameters() const { return m_parameters; }

    /// Sets all parameters; everything has to be done again.
    void setParameters(const SaccadeClusterParameters &parameters)
    {
        m_parameters = parameters;
        resetStage(Stage::PreProcessing);
    }
    /// Sets the parameter; its stage and those after it have to be done again.
    template <class T>
    void set(const StagedParameter<T> &row, T value)
    {
        m_parameters.*row.member = value;
        resetStage(row.stage);
    }

    /// The next stage to do.
    Stage stage() const { return m_stage; }
    /// Has this stage and those after it done again; those before it are left as they are, be they done or not.
    void resetStage(Stage stage);

    /// Whether there is anything to calculate from.
    bool hasExaminations() const;
    /// Whether the vectors are those of another time span, or of other fixations, than the model has now.
    bool isOutdated() const;

    /// Does the stages that are not done, each followed by its signal; all of them where the vectors are outdated.
    /// Where there are too many movements, the user is told and the calculation stays before the angle matrix, without
    /// results from there on.
    void cluster();

    // Results. They last until the stage is done again.
    const QList<SaccadeVector> &vectors() const { return m_vectors; }
    const std::vector<SaccadeGroup> &angleMatrices() const { return m_angleMatrices; }
    const std::vector<ClusterTree> &angleTrees() const { return m_angleTrees; }
    const SaccadeClusterList &angleClusters() const { return m_angleClusters; }
    const std::vector<SaccadeGroup> &distanceMatrices() const { return m_distanceMatrices; }
    const std::vector<ClusterTree> &distanceTrees() const { return m_distanceTrees; }
    /// The outcome: what is drawn.
    const SaccadeClusterList &distanceClusters() const { return m_distanceClusters; }

Q_SIGNALS:
    void sigPreProcessingDone();
    void sigAngleMatrixDone();
    void sigAngleTreeDone();
    void sigAngleClusterDone();
    void sigDistanceMatrixDone();
    void sigDistanceTreeDone();
    void sigDistanceClusterDone();

private:
    struct Step;
    static const Step steps[stageCount];

    bool doStage();
    void preProcess();
    void makeAngleMatrices();
    void makeAngleTrees();
    void makeAngleClusters();
    void makeDistanceMatrices();
    void makeDistanceTrees();
    void makeDistanceClusters();
    void clearFromAngleMatrices();

    const DataModel *m_model = nullptr;
    SaccadeClusterParameters m_parameters;
    Stage m_stage = Stage::PreProcessing;
    SaccadeSource m_source; ///< of the vectors
    QList<SaccadeVector> m_vectors;
    std::vector<SaccadeGroup> m_angleMatrices;
    std::vector<ClusterTree> m_angleTrees;
    SaccadeClusterList m_angleClusters;
    std::vector<SaccadeGroup> m_distanceMatrices;
    std::vector<ClusterTree> m_distanceTrees;
    SaccadeClusterList m_distanceClusters;
};
