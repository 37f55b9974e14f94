// SPDX-License-Identifier: GPL-3.0-or-later
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

void showValue(int value, QSpinBox *box)
{
    box->setValue(value);
}

void showValue(int value, QComboBox *list)
{
    list->setCurrentIndex(value);
}

void showValue(bool value, QCheckBox *box)
{
    box->setChecked(value);
}

void connectChange(QSpinBox *box, Control *control, void (Control::*slot)(int))
{
    QObject::connect(box, &QSpinBox::valueChanged, control, slot);
}

void connectChange(QComboBox *list, Control *control, void (Control::*slot)(int))
{
    QObject::connect(list, &QComboBox::currentIndexChanged, control, slot);
}

void connectChange(QCheckBox *box, Control *control, void (Control::*slot)(bool))
{
    QObject::connect(box, &QCheckBox::toggled, control, slot);
}

void showStatus(QLabel *label, const Status &status)
{
    label->setText(status.text);
    label->setStyleSheet(status.style);
}

/// Colors of the texts that are readable on the grounds of their states, whatever the theme. They are rules of the
/// panel: a label that has a style sheet takes no color of its palette, and its own sheet tells the state only.
QString statusTextRules()
{
    return QStringLiteral("QLabel[text=\"%1\"] { color: white; } QLabel[text=\"%2\"], QLabel[text=\"%3\"] { color: "
                          "black; }")
        .arg(done.text, changed.text, none.text);
}

} // namespace

SaccadeClusterControl::SaccadeClusterControl(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::SaccadeClusterControl>())
    , m_clusters(std::make_shared<SaccadeClusterModel>())
{
    m_ui->setupUi(this);
    setStyleSheet(statusTextRules());
    connectParameters();
    connectStages();
    connect(m_ui->clusterButton, &QPushButton::clicked, this, &Control::sltCluster);
    sltSetStatusNone();
}

SaccadeClusterControl::~SaccadeClusterControl() = default;

/// What is shown before the controls are connected is no change.
void SaccadeClusterControl::connectParameters()
{
    const auto bind = [this](const auto &row, auto *control, auto slot) {
        showValue(m_clusters->parameters().*row.member, control);
        connectChange(control, this, slot);
    };
    namespace rows = stagedrows;
    bind(rows::minimumLength, m_ui->minimumLenghtSpinbox, &Control::sltMinimumLenghtChanged);
    bind(rows::minimumAngleDifference, m_ui->minimumAngleDifferenceSpinbox, &Control::sltMinimumAngleDifferenceChanged);
    bind(rows::distanceCutoff, m_ui->distanceCutoffSpinbox, &Control::sltDistanceCutoffChanged);
    bind(rows::angleCutoff, m_ui->angleCutoffSpinbox, &Control::sltAngleCutoffChanged);
    bind(rows::minimumAngleQuantity, m_ui->minAngleQuantitySpinbox, &Control::sltMinimumAngleQuantityChanged);
    bind(rows::minimumDistanceQuantity, m_ui->minDistanceQuantitySpinbox, &Control::sltMinimumDistanceQuantityChanged);
    bind(rows::distanceLinkage, m_ui->distLinkageComboBox, &Control::sltDistanceLinkageChanged);
    bind(rows::angleLinkage, m_ui->angleLinkageComboBox, &Control::sltAngleLinkageChanged);
    bind(rows::distanceAlgorithm, m_ui->distanceAlgorithmComboBox, &Control::sltDistanceAlgorithmChanged);
    bind(rows::directionDependent, m_ui->directionDependentCheckBox, &Control::sltDirectionDependenceChanged);
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

void SaccadeClusterControl::sltDataChanged()
{
    if (!m_clusters->isOutdated())
        return;
    m_clusters->resetStage(Stage::PreProcessing);
    showChanged();
}

/// Asks for changes by itself, too: a run that ends early must not leave an old "Done" behind.
void SaccadeClusterControl::sltCluster()
{
    sltDataChanged();
    if (m_clusters->hasExaminations())
        m_clusters->cluster();
    Q_EMIT sigRedrawClusters();
}

void SaccadeClusterControl::sltSetStatusNone()
{
    m_clusters->resetStage(Stage::PreProcessing);
    for (QLabel *label : statusLabels())
        showStatus(label, none);
}

/// The stages that are to be done again.
void SaccadeClusterControl::showChanged()
{
    const auto labels = statusLabels();
    for (auto stage = static_cast<size_t>(m_clusters->stage()); stage < labels.size(); ++stage)
        showStatus(labels[stage], changed);
}

void SaccadeClusterControl::showDone(Stage stage)
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
