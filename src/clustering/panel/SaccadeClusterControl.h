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
    void sltMinimumLenghtChanged(int value); // sic
    void sltMinimumAngleDifferenceChanged(int value);
    void sltDistanceCutoffChanged(int value);
    void sltAngleCutoffChanged(int value);
    void sltMinimumAngleQuantityChanged(int value);
    void sltMinimumDistanceQuantityChanged(int value);
    void sltDistanceLinkageChanged(int value);
    void sltAngleLinkageChanged(int value);
    void sltDistanceAlgorithmChanged(int value);
    void sltDirectionDependenceChanged(bool value);

    /// Calculates what is not done. Without examinations only the signal goes out.
    void sltCluster();

    void sltPreProcessingStatusDone();
    void sltAngleMatrixStatusDone();
    void sltAngleTreeStatusDone();
    void sltAngleClusterStatusDone();
    void sltDistanceMatrixStatusDone();
    void sltDistanceTreeStatusDone();
    void sltDistanceClusterStatusDone();

    /// The data have changed: nothing of the last calculation counts any more.
    void sltSetStatusNone();

Q_SIGNALS:
    /// The clusters may have changed.
    void sigRedrawClusters();

private:
    template <class T>
    void change(const StagedParameter<T> &row, T value);
    void showParameters();
    void connectParameters();
    void connectStages();
    void showDone(int stage);
    std::array<QLabel *, SaccadeClusterModel::stageCount> statusLabels() const;

    std::unique_ptr<Ui::SaccadeClusterControl> m_ui;
    std::shared_ptr<SaccadeClusterModel> m_clusters;
};
