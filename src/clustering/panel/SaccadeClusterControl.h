// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/SaccadeClusterModel.h"

#include <QWidget>

#include <array>
#include <memory>

namespace Ui {
class SaccadeClusterControl;
}
class DataModel;
class QLabel;

/// The panel of saccade clusters: their parameters, the button that calculates them, and for each stage of the
/// calculation whether its result is up to date.
class SaccadeClusterControl : public QWidget {
    Q_OBJECT
public:
    explicit SaccadeClusterControl(QWidget *parent = nullptr);
    ~SaccadeClusterControl() override;

    /// Without a model nothing is calculated.
    void setModel(const DataModel *model) { m_clusters->setModel(model); }

    /// Parameters and results, for what draws them; never null.
    std::shared_ptr<SaccadeClusterModel> saccadeClusterModel() const { return m_clusters; }

public Q_SLOTS:
    // Each sets the parameter and shows which stages have to be done again.
    void sltMinimumLenghtChanged(int value) { change(stagedrows::minimumLength, value); } // sic
    void sltMinimumAngleDifferenceChanged(int value) { change(stagedrows::minimumAngleDifference, value); }
    void sltDistanceCutoffChanged(int value) { change(stagedrows::distanceCutoff, value); }
    void sltAngleCutoffChanged(int value) { change(stagedrows::angleCutoff, value); }
    void sltMinimumAngleQuantityChanged(int value) { change(stagedrows::minimumAngleQuantity, value); }
    void sltMinimumDistanceQuantityChanged(int value) { change(stagedrows::minimumDistanceQuantity, value); }
    void sltDistanceLinkageChanged(int value) { change(stagedrows::distanceLinkage, value); }
    void sltAngleLinkageChanged(int value) { change(stagedrows::angleLinkage, value); }
    void sltDistanceAlgorithmChanged(int value) { change(stagedrows::distanceAlgorithm, value); }
    void sltDirectionDependenceChanged(bool value) { change(stagedrows::directionDependent, value); }

    /// The time frame or the fixations may have changed: clusters that rest on others are to be calculated again. Where
    /// all is as it was, and before the first calculation, nothing changes.
    void sltDataChanged();

    /// Calculates what is not done. Without examinations only the signal goes out.
    void sltCluster();

    // Each shows that the stage is done.
    void sltPreProcessingStatusDone() { showDone(Stage::PreProcessing); }
    void sltAngleMatrixStatusDone() { showDone(Stage::AngleMatrix); }
    void sltAngleTreeStatusDone() { showDone(Stage::AngleTree); }
    void sltAngleClusterStatusDone() { showDone(Stage::AngleClusters); }
    void sltDistanceMatrixStatusDone() { showDone(Stage::DistanceMatrix); }
    void sltDistanceTreeStatusDone() { showDone(Stage::DistanceTree); }
    void sltDistanceClusterStatusDone() { showDone(Stage::DistanceClusters); }

    /// The data have changed: nothing of the last calculation counts any more.
    void sltSetStatusNone();

Q_SIGNALS:
    /// The clusters may have changed.
    void sigRedrawClusters();

private:
    using Stage = SaccadeClusterStage;

    template <class T>
    void change(const StagedParameter<T> &row, T value)
    {
        m_clusters->set(row, value);
        showChanged();
    }
    void connectParameters();
    void connectStages();
    void showChanged();
    void showDone(Stage stage);
    std::array<QLabel *, SaccadeClusterModel::stageCount> statusLabels() const;

    std::unique_ptr<Ui::SaccadeClusterControl> m_ui;
    std::shared_ptr<SaccadeClusterModel> m_clusters;
};
