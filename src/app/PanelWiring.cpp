// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PanelWiring.h"

#include "app/controlWidget.h"
#include "clustering/panel/ClusterControl.h"
#include "clustering/panel/SaccadeClusterControl.h"
#include "detection/panel/FixationControl.h"
#include "export/panel/ExportWidget.h"
#include "import/panel/CorrectionControl.h"
#include "import/panel/DataWidget.h"
#include "statistics/panel/StatisticsWidget.h"
#include "visualization/panel/VisualizationSaccadeClustersWidget.h"

namespace {

/// Who calculates or imports something enables its tables.
void connectExportPanel(controlWidget &control)
{
    const ExportWidget *tables = &control.exportWidget();
    const StatisticsWidget *statistics = &control.statisticsWidget();
    QObject::connect(statistics, &StatisticsWidget::sigEnableGeneralStatisticExport, tables,
                     &ExportWidget::sltEnableGeneralStatisticsExport);
    QObject::connect(statistics, &StatisticsWidget::sigEnableAOIstatExport, tables,
                     &ExportWidget::sltEnableAOIstatsExport);
    QObject::connect(&control.clusterControl(), &ClusterControl::sigCalculateClusters, tables,
                     &ExportWidget::sltEnableClusterstatsExport);
    QObject::connect(&control.clusterControl(), &ClusterControl::sigCalculateCumulativeClusters, tables,
                     &ExportWidget::sltEnableCUMMClusterstatsExport);
    QObject::connect(&control.fixationControl(), &FixationControl::sigCalculateFixations, tables,
                     &ExportWidget::sltEnableAnglestarExport);
    QObject::connect(&control.dataWidget(), &DataWidget::sigLoadTimeline, tables, &ExportWidget::sltEnableSampleExport);
}

/// The page and the second import bring each other ellipses and recordings.
void connectCorrection(controlWidget &control)
{
    const CorrectionControl *correction = &control.correctionControl();
    const DataWidget *files = &control.dataWidget();
    QObject::connect(files, &DataWidget::sigAddEllipses, correction, &CorrectionControl::sltAddEllipsesINI);
    QObject::connect(correction, &CorrectionControl::sigImport, files, &DataWidget::sltImportIlmenau_internal);
    QObject::connect(correction, &CorrectionControl::sigGraphicsParametersChanged, &control,
                     &controlWidget::sltEmitGraphicChanged);
}

} // namespace

void connectPanels(controlWidget &control)
{
    connectExportPanel(control);
    connectCorrection(control);
    QObject::connect(&control.saccadeClusterControl(), &SaccadeClusterControl::sigRedrawClusters,
                     &control.saccadeClustersWidget(), &VisualizationSaccadeClustersWidget::sltRedrawClusters);
}
