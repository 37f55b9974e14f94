// SPDX-License-Identifier: GPL-3.0-or-later
// Who hears whom: the connections of the main window.

#include "app/Vistrum.h"
#include "ui_Vistrum.h"

#include "aoi/panel/add_heatmap_aoi.h"
#include "aoi/panel/AoiControl.h"
#include "app/AboutBox.h"
#include "app/WheelGuard.h"
#include "clustering/panel/ClusterControl.h"
#include "clustering/panel/SaccadeClusterControl.h"
#include "commands/CommandStack.h"
#include "detection/panel/FixationControl.h"
#include "export/panel/ExportWidget.h"
#include "import/panel/CorrectionControl.h"
#include "import/panel/DataWidget.h"
#include "settings/FirstStart.h"
#include "statistics/panel/StatisticsWidget.h"
#include "table/panel/ExaminationTableControl.h"
#include "visualization/panel/VisualizationAOIWidget.h"
#include "visualization/panel/VisualizationSaccadeClustersWidget.h"
#include "visualization/panel/VisualizationWidget.h"
#include "visualization/parameters/GroupColors.h"

#include <algorithm>

void Vistrum::makeTable()
{
    using Control = ExaminationTableControl;
    m_table = new Control(*m_ui->tableWidget, *m_ui->groupByComboBox, m_model, *this, this);
    m_table->setColorTable([this] { return groupColors(drawingRecords()); });
    connect(m_ui->check_Button, &QPushButton::clicked, m_table, &Control::sltCheck);
    connect(m_ui->uncheck_Button, &QPushButton::clicked, m_table, &Control::sltUncheck);
    connect(m_ui->filterButton, &QPushButton::clicked, m_table, &Control::sltShowFilterDialog);
    connect(m_ui->clearFilterButton, &QPushButton::clicked, m_table, &Control::sltClearFilter);
    connect(m_ui->qualityButton, &QPushButton::clicked, m_table, &Control::sltShowQuality);
    connect(m_ui->manageGroupsButton, &QPushButton::clicked, m_table, &Control::sltManageGroups);
    connect(m_table, &Control::rowsAdded, this, &Vistrum::rebuildImageList);
    connect(m_table, &Control::timeSpanWanted, &timeline(), &Timeline::setTimeSpan);
    connect(m_table, &Control::groupsChanged, this, &Vistrum::refreshGroups);
    connect(m_table, &Control::sigSetSaccadeClusterStatusNone, this, &Vistrum::sigSetSaccadeClusterStatusNone);
}

void Vistrum::makeMenus()
{
    CommandStack &stack = CommandStack::instance();
    QAction *undo = stack.createUndoAction(this, QStringLiteral("&Undo"));
    QAction *redo = stack.createRedoAction(this, QStringLiteral("&Redo"));
    undo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    redo->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    m_ui->menuEdit->insertActions(m_ui->action_UndoView, {undo, redo});
    m_ui->menuEdit->insertSeparator(m_ui->action_UndoView);
    connect(m_ui->action_UndoView, &QAction::triggered, m_ui->control, &controlWidget::sltShowCommandProcessor);
    connect(m_ui->action_ImportOther, &QAction::triggered, this,
            [this] { m_ui->control->dataWidget().importOther({}); });
    connect(m_ui->action_Quit, &QAction::triggered, this, &Vistrum::close);
    connect(m_ui->action_Methods, &QAction::triggered, this, &Vistrum::sltShowMethods);
    connect(m_ui->action_SaveRecipe, &QAction::triggered, this, &Vistrum::sltSaveRecipe);
    connect(m_ui->action_About, &QAction::triggered, this, [this] { showAbout(this); });
    connect(m_ui->action_Help, &QAction::triggered, this, [this] {
        showPage(this, findDocumentation(QStringLiteral("README.md"), QCoreApplication::applicationDirPath()));
    });
    connect(m_ui->action_Recorder, &QAction::triggered, this, &Vistrum::sltEyeTribeRecorder);
    connect(m_ui->action_SaveSettings, &QAction::triggered, this, &Vistrum::sltSaveRegistry);
    connect(m_ui->action_ImportSettings, &QAction::triggered, this, &Vistrum::sltImportRegistry);
    connect(m_ui->action_LoadDefaultSettings, &QAction::triggered, this, &Vistrum::sltResetSettings);
}

void Vistrum::connectAreas()
{
    controlWidget &control = *m_ui->control;
    m_regionDialog->setModel(&m_model);
    m_regionDialog->setMainWindow(this);
    m_regionDialog->setLog(&m_log);
    m_regionDialog->setInsert([&control](const QList<AreaOfInterest> &aois) { control.aoiControl().insertAll(aois); });
    m_regionDialog->setAttribute(Qt::WA_QuitOnClose, false); // the program ends with its main window
    connect(&control, &controlWidget::sigAddAOIsHeatmap, this, &Vistrum::sltAddAOIsHeatmap);
    connect(&control, &controlWidget::sigAddAOIsGrid, this, &Vistrum::sltAddAOIsGrid);
    connect(m_regionDialog.get(), &add_heatmap_aoi::sigGenAOIs, this, &Vistrum::sltUpdateAndRedraw);
    connect(&control.areasWidget(), &VisualizationAOIWidget::sigGraphicsParametersChanged, this,
            &Vistrum::sltUpdateAndRedraw);
    connect(this, &Vistrum::sigUpdateSettings, &control.areasWidget(), &VisualizationAOIWidget::sltUpdateSettings);
}

/// The page and the second import bring each other ellipses and recordings.
void Vistrum::connectCorrection()
{
    CorrectionControl &correction = m_ui->control->correctionControl();
    const DataWidget &files = m_ui->control->dataWidget();
    correction.setScene(&m_scene);
    connect(&m_scene, &QGraphicSceneOverlay::sigEllipsesdone, &correction, &CorrectionControl::sltAddEllipsis);
    connect(&files, &DataWidget::sigAddEllipses, &correction, &CorrectionControl::sltAddEllipsesINI);
    connect(&correction, &CorrectionControl::sigImport, &files, &DataWidget::sltImportIlmenau_internal);
    connect(&correction, &CorrectionControl::sigGraphicsParametersChanged, m_ui->control,
            &controlWidget::sltEmitGraphicChanged);
}

std::function<void(QGraphicsScene &)> Vistrum::correctionOverlay() const
{
    CorrectionControl &correction = m_ui->control->correctionControl();
    if (!correction.isUsed())
        return {};
    return [&correction](QGraphicsScene &scene) { addCorrectionItems(scene, correction.overlay()); };
}

void Vistrum::connectForm()
{
    connect(m_ui->image_comboBox, &QComboBox::currentIndexChanged, this, &Vistrum::sltUpdateImageView);
    connect(m_ui->fitToScreenButton, &QPushButton::clicked, this, &Vistrum::sltFitToScreen);
    connect(m_ui->originalSiteButton, &QPushButton::clicked, this, &Vistrum::sltOriginalSize);
    connect(m_ui->loadPictureButton, &QPushButton::clicked, this, &Vistrum::sltImportPicture);
    connect(m_ui->showBorderCheckBox, &QCheckBox::clicked, this, &Vistrum::sltUpdateBorder);
    connect(m_ui->remove_outlier, &QCheckBox::stateChanged, this, &Vistrum::sltCutData);
    makeMenus();
    (new WheelGuard(this))->guard(*this);
    setAcceptDrops(true);
    m_ui->visualization->setAcceptDrops(false); // the window takes them
    m_ui->visualization->viewport()->setAcceptDrops(false);
}

void Vistrum::connectStatistics()
{
    controlWidget &control = *m_ui->control;
    const StatisticsWidget &statistics = control.statisticsWidget();
    const ExportWidget &tables = control.exportWidget();
    connect(&statistics, &StatisticsWidget::sigCalculateGeneralStatistics, this,
            &Vistrum::sltCalculateGeneralStatistics);
    connect(&statistics, &StatisticsWidget::sigEnableGeneralStatisticExport, &tables,
            &ExportWidget::sltEnableGeneralStatisticsExport);
    connect(&statistics, &StatisticsWidget::sigCalcAOIstats, this, &Vistrum::sltCalcAOIStats);
    connect(&statistics, &StatisticsWidget::sigEnableAOIstatExport, &tables, &ExportWidget::sltEnableAOIstatsExport);
    connect(&control.clusterControl(), &ClusterControl::sigCalculateClusters, &tables,
            &ExportWidget::sltEnableClusterstatsExport);
    connect(&control.clusterControl(), &ClusterControl::sigCalculateCumulativeClusters, &tables,
            &ExportWidget::sltEnableCUMMClusterstatsExport);
    connect(&control.fixationControl(), &FixationControl::sigCalculateFixations, &tables,
            &ExportWidget::sltEnableAnglestarExport);
    connect(this, &Vistrum::sigEnable_trans_matrix_export, &tables, &ExportWidget::sltEnable_AOI_trans_matrix_export);
    connect(m_table, &ExaminationTableControl::rowsAdded, &tables, &ExportWidget::sltEnableQualityExport);
    connect(&tables, &ExportWidget::sigExport_aoi_trans_csv, this, &Vistrum::sltexport_aoi_trans_csv);
    connect(&tables, &ExportWidget::sigExport_anglestar, this, &Vistrum::sltexport_anglestar);
}

void Vistrum::connectPanels()
{
    connectStatistics();
    controlWidget &control = *m_ui->control;
    m_commandIndex = CommandStack::instance().index();
    connect(&CommandStack::instance(), &CommandStack::indexChanged, this, &Vistrum::followCommands);
    connect(&control, &controlWidget::sigGraphicsParametersChanged, this, &Vistrum::sltUpdateAndRedraw);
    connect(&control.dataWidget(), &DataWidget::sigLoadTimeline, this, &Vistrum::sltDrawPaths);
    connect(&control.dataWidget(), &DataWidget::sigLoadTimeline, this, &Vistrum::refreshGroups);
    connect(&control.dataWidget(), &DataWidget::sigLoadTimeline, &control.exportWidget(),
            &ExportWidget::sltEnableSampleExport);
    connect(&control.dataWidget(), &DataWidget::sigLoadTimeline, this, [this] {
        const bool anyFixations = std::ranges::any_of(m_model.examinations(), [](const Examination &examination) {
            return std::ranges::any_of(examination.streams(),
                                       [](const EyeData *eye) { return !eye->scanpath.isEmpty(); });
        });
        if (anyFixations) { // some recordings come with theirs
            Q_EMIT sigEnable_fixation_export();
            Q_EMIT sigEnable_event_export();
        }
    });
    connect(&control.fixationControl(), &FixationControl::sigCalculateFixations, this, &Vistrum::sltCalculateFixations);
    connect(this, &Vistrum::sigEnable_fixation_export, &control.exportWidget(), &ExportWidget::sltEnableFixationExport);
    connect(this, &Vistrum::sigEnable_event_export, &control.exportWidget(), &ExportWidget::sltEnableEventExport);
    connect(&control.clusterControl(), &ClusterControl::sigCalculateClusters, this, &Vistrum::sltCalculateClusters);
    connect(&control.clusterControl(), &ClusterControl::sigCalculateCumulativeClusters, this,
            &Vistrum::sltCalculateCumulativeClusters);
    connect(this, &Vistrum::sigEnable_fixationcluster_export, &control.exportWidget(),
            &ExportWidget::sltEnableFixationClusterExport);
    connect(this, &Vistrum::sigEnable_cumulativecluster_export, &control.exportWidget(),
            &ExportWidget::sltEnableCumulativeClusterExport);
    connect(this, &Vistrum::sigUpdateSettings, &control.fixationControl(), &FixationControl::sltUpdateSettings);
    connect(this, &Vistrum::sigUpdateSettings, &control, &controlWidget::sltUpdateSettings);
    for (VisualizationWidget *panel : control.visualizationWidgets()) {
        connect(panel, &VisualizationWidget::sigGraphicsParametersChanged, this, &Vistrum::sltUpdateAndRedraw);
        connect(panel, &VisualizationWidget::sigExportheatmap, this, &Vistrum::sltExportheatmap);
        connect(this, &Vistrum::sigUpdateSettings, panel, &VisualizationWidget::sltUpdateSettings);
    }
    control.saccadeClustersWidget().setScene(&m_scene);
    connect(this, &Vistrum::sigSetSaccadeClusterStatusNone, &control.saccadeClusterControl(),
            &SaccadeClusterControl::sltSetStatusNone);
    connect(&control.saccadeClusterControl(), &SaccadeClusterControl::sigRedrawClusters,
            &control.saccadeClustersWidget(), &VisualizationSaccadeClustersWidget::sltRedrawClusters);
    connect(&control, &controlWidget::sigShowTable, this, &Vistrum::sltShowTable);
    connect(&control, &controlWidget::sigShowTimeline, this, &Vistrum::sltShowTimeline);
    connect(&timeline(), &Timeline::timespanChanged, &control, &controlWidget::sltTimespanHasChanged);
    connect(&timeline(), &Timeline::update_widget, this, &Vistrum::update_timeline_widget);
    connect(&timeline(), &Timeline::reinsert_widget, this, &Vistrum::slt_reinsert_timeline);
    connect(&control, &controlWidget::sigUpdateTimeframe, &timeline(), &Timeline::setSliderTimeframe);
}
