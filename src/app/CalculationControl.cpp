// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CalculationControl.h"

#include "app/controlWidget.h"
#include "app/PictureControl.h"
#include "app/SessionControl.h"
#include "clustering/panel/ClusterControl.h"
#include "clustering/panel/SaccadeClusterControl.h"
#include "commands/CommandStack.h"
#include "commands/CountText.h"
#include "detection/panel/FixationControl.h"
#include "export/panel/ExportWidget.h"
#include "export/TransitionTables.h"
#include "import/panel/DataWidget.h"
#include "statistics/panel/StatisticsWidget.h"
#include "statistics/StatisticsCalculation.h"

#include <algorithm>

CalculationControl::CalculationControl(const Sources &sources) : m_sources(sources)
{
    connectCalculations();
    connectExports();
    connect(this, &CalculationControl::sigSetSaccadeClusterStatusNone, &sources.control.saccadeClusterControl(),
            &SaccadeClusterControl::sltSetStatusNone);
    // Undo and redo of whatever checks, imports or calculates; a click tells more, and comes after its command.
    connect(&CommandStack::instance(), &CommandStack::indexChanged, &sources.control.saccadeClusterControl(),
            &SaccadeClusterControl::sltDataChanged);
    connect(&sources.picture, &PictureControl::aboutToDraw, this, &CalculationControl::followDrawing);
}

void CalculationControl::connectCalculations()
{
    using Self = CalculationControl;
    controlWidget &control = m_sources.control;
    connect(&control.dataWidget(), &DataWidget::sigLoadTimeline, this, &Self::followImport);
    connect(&control.fixationControl(), &FixationControl::sigCalculateFixations, this, &Self::sltCalculateFixations);
    const ClusterControl *clusters = &control.clusterControl();
    connect(clusters, &ClusterControl::sigCalculateClusters, this, &Self::sltCalculateClusters);
    connect(clusters, &ClusterControl::sigCalculateCumulativeClusters, this, &Self::sltCalculateCumulativeClusters);
    connect(&control.saccadeClusterControl(), &SaccadeClusterControl::sigRedrawClusters, this,
            &Self::tellSaccadeClusters);
    const StatisticsWidget *statistics = &control.statisticsWidget();
    connect(statistics, &StatisticsWidget::sigCalculateGeneralStatistics, this, &Self::sltCalculateGeneralStatistics);
    connect(statistics, &StatisticsWidget::sigCalcAOIstats, this, &Self::sltCalcAOIStats);
}

void CalculationControl::connectExports()
{
    using Self = CalculationControl;
    using Panel = ExportWidget;
    const Panel *panel = &m_sources.control.exportWidget();
    connect(this, &Self::sigEnable_fixation_export, panel, &Panel::sltEnableFixationExport);
    connect(this, &Self::sigEnable_event_export, panel, &Panel::sltEnableEventExport);
    connect(this, &Self::sigEnable_fixationcluster_export, panel, &Panel::sltEnableFixationClusterExport);
    connect(this, &Self::sigEnable_cumulativecluster_export, panel, &Panel::sltEnableCumulativeClusterExport);
    connect(this, &Self::sigEnable_trans_matrix_export, panel, &Panel::sltEnable_AOI_trans_matrix_export);
}

void CalculationControl::sltCalculateFixations()
{
    Q_EMIT sigEnable_fixation_export();
    Q_EMIT sigEnable_event_export();
    Q_EMIT sigSetSaccadeClusterStatusNone();
    m_sources.picture.redraw();
}

void CalculationControl::sltCalculateClusters()
{
    Q_EMIT sigEnable_fixationcluster_export();
    m_sources.picture.redraw();
}

void CalculationControl::sltCalculateCumulativeClusters()
{
    if (!m_sources.model.checkedExaminations().isEmpty())
        Q_EMIT sigEnable_cumulativecluster_export();
    m_sources.picture.redraw();
}

void CalculationControl::sltCalculateGeneralStatistics()
{
    calculateGeneralStatistics(m_sources.model, &m_sources.log);
    m_sources.session.note(recipe::Statistics{QStringLiteral("general-statistics")});
    tellStatistics(QStringLiteral("General statistics"));
}

void CalculationControl::sltCalcAOIStats()
{
    calculateAoiStatistics(m_sources.model, &m_sources.log);
    m_sources.session.note(recipe::Statistics{QStringLiteral("aoi-statistics")});
    const auto enabled = std::ranges::count_if(m_sources.model.aoiList(), &AreaOfInterest::enabled);
    tellStatistics(QStringLiteral("AOI statistics (enabled areas: %1)").arg(enabled));
}

void CalculationControl::tellStatistics(const QString &what)
{
    const QString recordings = recordingsText(m_sources.model.checkedExaminations().size());
    m_sources.window.tell(
        {QStringLiteral("%1 in %2; \"Export statistics\" writes them").arg(what, recordings), {}, {}});
}

/// What was not calculated has been told why, in a box.
void CalculationControl::tellSaccadeClusters()
{
    const auto clusters = m_sources.control.saccadeClusterControl().saccadeClusterModel();
    const qsizetype recordings = m_sources.model.checkedExaminations().size();
    if (recordings == 0 || clusters->stage() != SaccadeClusterStage::Done)
        return;
    m_sources.window.tell({QStringLiteral("Saccade clusters in %1: %2, from %3 movements")
                               .arg(recordingsText(recordings))
                               .arg(clusters->distanceClusters().size())
                               .arg(clusters->vectors().size()),
                           {},
                           {}});
}

/// Some recordings come with their fixations.
void CalculationControl::followImport()
{
    const bool anyFixations = std::ranges::any_of(m_sources.model.examinations(), [](const Examination &examination) {
        return std::ranges::any_of(examination.streams(), [](const EyeData *eye) { return !eye->scanpath.isEmpty(); });
    });
    if (!anyFixations)
        return;
    Q_EMIT sigEnable_fixation_export();
    Q_EMIT sigEnable_event_export();
}

void CalculationControl::followDrawing()
{
    if (hasAreasAndFixations(m_sources.model))
        Q_EMIT sigEnable_trans_matrix_export();
}
