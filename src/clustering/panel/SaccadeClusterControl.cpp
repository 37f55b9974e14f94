#include "clustering/panel/SaccadeClusterControl.h"

#include "ui_SaccadeClusterControl.h"

namespace {

using Control = SaccadeClusterControl;
using Model = SaccadeClusterModel;

struct Status {
    QLatin1StringView text;
    QLatin1StringView style;
};

constexpr Status done{QLatin1StringView("Done"), QLatin1StringView("background-color: green;")};
constexpr Status changed{QLatin1StringView("Values changed"), QLatin1StringView("background-color: yellow;")};
constexpr Status none{QLatin1StringView("Not Calculated"), QLatin1StringView("background-color: red;")};

void showStatus(QLabel *label, const Status &status)
{
    label->setText(status.text);
    label->setStyleSheet(status.style);
}

} // namespace

SaccadeClusterControl::SaccadeClusterControl(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::SaccadeClusterControl>())
    , m_clusters(std::make_shared<SaccadeClusterModel>())
{
    m_ui->setupUi(this);
    showParameters();
    connectParameters();
    connectStages();
    connect(m_ui->clusterButton, &QPushButton::clicked, this, &Control::sltCluster);
    sltSetStatusNone();
}

SaccadeClusterControl::~SaccadeClusterControl() = default;

/// Before the controls are connected: what is only shown is no change.
void SaccadeClusterControl::showParameters()
{
    const SaccadeClusterParameters &parameters = m_clusters->parameters();
    m_ui->minimumLenghtSpinbox->setValue(parameters.minimumLength);
    m_ui->minimumAngleDifferenceSpinbox->setValue(parameters.minimumAngleDifference);
    m_ui->distanceCutoffSpinbox->setValue(parameters.distanceCutoff);
    m_ui->angleCutoffSpinbox->setValue(parameters.angleCutoff);
    m_ui->minAngleQuantitySpinbox->setValue(parameters.minimumAngleQuantity);
    m_ui->minDistanceQuantitySpinbox->setValue(parameters.minimumDistanceQuantity);
    m_ui->distLinkageComboBox->setCurrentIndex(parameters.distanceLinkage);
    m_ui->angleLinkageComboBox->setCurrentIndex(parameters.angleLinkage);
    m_ui->distanceAlgorithmComboBox->setCurrentIndex(parameters.distanceAlgorithm);
    m_ui->directionDependentCheckBox->setChecked(parameters.directionDependent);
}

void SaccadeClusterControl::connectParameters()
{
    const auto spin = [this](QSpinBox *box, void (Control::*slot)(int)) {
        connect(box, &QSpinBox::valueChanged, this, slot);
    };
    const auto list = [this](QComboBox *box, void (Control::*slot)(int)) {
        connect(box, &QComboBox::currentIndexChanged, this, slot);
    };
    spin(m_ui->minimumLenghtSpinbox, &Control::sltMinimumLenghtChanged);
    spin(m_ui->minimumAngleDifferenceSpinbox, &Control::sltMinimumAngleDifferenceChanged);
    spin(m_ui->distanceCutoffSpinbox, &Control::sltDistanceCutoffChanged);
    spin(m_ui->angleCutoffSpinbox, &Control::sltAngleCutoffChanged);
    spin(m_ui->minAngleQuantitySpinbox, &Control::sltMinimumAngleQuantityChanged);
    spin(m_ui->minDistanceQuantitySpinbox, &Control::sltMinimumDistanceQuantityChanged);
    list(m_ui->distLinkageComboBox, &Control::sltDistanceLinkageChanged);
    list(m_ui->angleLinkageComboBox, &Control::sltAngleLinkageChanged);
    list(m_ui->distanceAlgorithmComboBox, &Control::sltDistanceAlgorithmChanged);
    connect(m_ui->directionDependentCheckBox, &QCheckBox::toggled, this, &Control::sltDirectionDependenceChanged);
}

void SaccadeClusterControl::connectStages()
{
    const Model *model = m_clusters.get();
    connect(model, &Model::sigPreProcessingDone, this, &Control::sltPreProcessingStatusDone);
    connect(model, &Model::sigAngleMatrixDone, this, &Control::sltAngleMatrixStatusDone);
    connect(model, &Model::sigAngleTreeDone, this, &Control::sltAngleTreeStatusDone);
    connect(model, &Model::sigAngleClusterDone, this, &Control::sltAngleClusterStatusDone);
    connect(model, &Model::sigDistanceMatrixDone, this, &Control::sltDistanceMatrixStatusDone);
    connect(model, &Model::sigDistanceTreeDone, this, &Control::sltDistanceTreeStatusDone);
    connect(model, &Model::sigDistanceClusterDone, this, &Control::sltDistanceClusterStatusDone);
}

void SaccadeClusterControl::sltCluster()
{
    if (m_clusters->hasExaminations())
        m_clusters->cluster();
    Q_EMIT sigRedrawClusters();
}

void SaccadeClusterControl::sltSetStatusNone()
{
    m_clusters->resetStage(0);
    for (QLabel *label : statusLabels())
        showStatus(label, none);
}

template <class T>
void SaccadeClusterControl::change(const StagedParameter<T> &row, T value)
{
    m_clusters->set(row, value);
    const auto labels = statusLabels();
    for (auto stage = static_cast<size_t>(m_clusters->stage()); stage < labels.size(); ++stage)
        showStatus(labels[stage], changed);
}

void SaccadeClusterControl::showDone(int stage)
{
    showStatus(statusLabels()[static_cast<size_t>(stage)], done);
}

/// In the order of the stages.
std::array<QLabel *, SaccadeClusterModel::stageCount> SaccadeClusterControl::statusLabels() const
{
    return {m_ui->preProcessingStatusLabel,  m_ui->angleMatrixStatus,         m_ui->angleTreeStatus,
            m_ui->angleClusterStatusLabel,   m_ui->distanceMatrixStatusLabel, m_ui->distanceTreeStatusLabel,
            m_ui->distanceClusterStatusLabel};
}

// ---- slots of one call

void SaccadeClusterControl::sltMinimumLenghtChanged(int value)
{
    change(stagedrows::minimumLength, value);
}

void SaccadeClusterControl::sltMinimumAngleDifferenceChanged(int value)
{
    change(stagedrows::minimumAngleDifference, value);
}

void SaccadeClusterControl::sltDistanceCutoffChanged(int value)
{
    change(stagedrows::distanceCutoff, value);
}

void SaccadeClusterControl::sltAngleCutoffChanged(int value)
{
    change(stagedrows::angleCutoff, value);
}

void SaccadeClusterControl::sltMinimumAngleQuantityChanged(int value)
{
    change(stagedrows::minimumAngleQuantity, value);
}

void SaccadeClusterControl::sltMinimumDistanceQuantityChanged(int value)
{
    change(stagedrows::minimumDistanceQuantity, value);
}

void SaccadeClusterControl::sltDistanceLinkageChanged(int value)
{
    change(stagedrows::distanceLinkage, value);
}

void SaccadeClusterControl::sltAngleLinkageChanged(int value)
{
    change(stagedrows::angleLinkage, value);
}

void SaccadeClusterControl::sltDistanceAlgorithmChanged(int value)
{
    change(stagedrows::distanceAlgorithm, value);
}

void SaccadeClusterControl::sltDirectionDependenceChanged(bool value)
{
    change(stagedrows::directionDependent, value);
}

void SaccadeClusterControl::sltPreProcessingStatusDone()
{
    showDone(0);
}

void SaccadeClusterControl::sltAngleMatrixStatusDone()
{
    showDone(1);
}

void SaccadeClusterControl::sltAngleTreeStatusDone()
{
    showDone(2);
}

void SaccadeClusterControl::sltAngleClusterStatusDone()
{
    showDone(3);
}

void SaccadeClusterControl::sltDistanceMatrixStatusDone()
{
    showDone(4);
}

void SaccadeClusterControl::sltDistanceTreeStatusDone()
{
    showDone(5);
}

void SaccadeClusterControl::sltDistanceClusterStatusDone()
{
    showDone(6);
}
