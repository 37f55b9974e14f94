// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/panel/ClusterControl.h"

#include "clustering/ClusterCalculation.h"
#include "clustering/ClusterCommands.h"
#include "clustering/panel/ClusterCalculationCommands.h"
#include "commands/IMainWindow.h"
#include "ui_ClusterControl.h"

ClusterControl::ClusterControl(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::ClusterControl>())
{
    m_ui->setupUi(this);
    setInitialValues(m_settings, rows::cluster);
    m_parameters.bind<rows::clusterCalculationType>(m_ui->calcType_comboBox, m_settings);
    m_parameters.bind<rows::clusterStandardMinimumFixations>(m_ui->fix_spin, m_settings);
    m_parameters.bind<rows::clusterStandardOverlapAllowed>(m_ui->overlap_spin, m_settings);
    m_parameters.bind<rows::clusterStandardMaximumRadius>(m_ui->radius_spin, m_settings);
    m_parameters.bind<rows::clusterMeanShiftRadius>(m_ui->spinrad, m_settings);
    m_parameters.bind<rows::clusterMeanShiftGradient>(m_ui->spinGradient, m_settings);
    m_parameters.bind<rows::clusterMeanShiftIterations>(m_ui->spinIterations, m_settings);
    m_parameters.bind<rows::clusterMeanShiftMinimumFixations>(m_ui->spinMinFixations, m_settings);
    m_parameters.whenShown<rows::clusterCalculationType>([this](int type) { showMethod(type); });
    for (QToolButton *button : {m_ui->calculateClusters_button, m_ui->toolButton, m_ui->toolButton_2})
        button->setFocusPolicy(Qt::StrongFocus); // a click completes the number that is being typed
    connect(m_ui->calculateClusters_button, &QToolButton::clicked, this, &ClusterControl::sltCalculateClusters);
    connect(m_ui->toolButton, &QToolButton::clicked, this, &ClusterControl::sltCalculateCumulativeClusters);
    connect(m_ui->toolButton_2, &QToolButton::clicked, this, &ClusterControl::sltCalculateCumulativeClusters_MERIDOS);
    checkSettings();
}

ClusterControl::~ClusterControl() = default;

void ClusterControl::checkSettings()
{
    loadParameters(m_settings, rows::cluster);
    m_parameters.refresh(m_settings, rows::cluster);
}

void ClusterControl::sltCalculateClusters()
{
    if (!m_model)
        return;
    const RedrawHold once(m_window); // the command draws, and so do those who hear the signal
    CommandStack::instance().push(new CommandCalculateClusters(*m_model, parameters(), m_window));
    Q_EMIT sigCalculateClusters();
}

void ClusterControl::sltCalculateCumulativeClusters()
{
    calculateCumulativeClusters(parameters());
}

void ClusterControl::sltCalculateCumulativeClusters_MERIDOS()
{
    if (clusterMethod(calculationType()) != ClusterMethod::Overlap)
        return;
    calculateCumulativeClusters(
        OverlapClusterParameters{m_ui->spinBox_min_fix->value(), m_ui->spinBox_outlier->value()});
}

void ClusterControl::calculateCumulativeClusters(const ClusterParameters &parameters)
{
    if (!m_model)
        return;
    const RedrawHold once(m_window);
    CommandStack::instance().push(new CommandCalculateCumulativeClusters(*m_model, parameters, m_window));
    Q_EMIT sigCalculateCumulativeClusters();
}

/// Only the box of the current method shows.
void ClusterControl::showMethod(int calculationType)
{
    const ClusterMethod method = clusterMethod(calculationType);
    m_ui->groupBox_standard->setVisible(method == ClusterMethod::Standard);
    m_ui->groupBox_meanshift->setVisible(method == ClusterMethod::MeanShift);
    m_ui->groupBox_outlier->setVisible(method == ClusterMethod::Overlap);
}

/// What the combo box shows counts: without a current item the standard method runs.
int ClusterControl::calculationType() const
{
    return m_ui->calcType_comboBox->currentIndex();
}

ClusterParameters ClusterControl::parameters() const
{
    return clusterParameters(calculationType(), m_settings, {m_ui->spinBox_min_fix->value(), std::nullopt});
}
