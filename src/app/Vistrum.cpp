// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Vistrum.h"
#include "ui_Vistrum.h"

#include "aoi/generation/GridAois.h"
#include "aoi/panel/add_heatmap_aoi.h"
#include "aoi/panel/AoiControl.h"
#include "app/AboutBox.h"
#include "app/CalculationControl.h"
#include "app/DiagramControl.h"
#include "app/NoticeLine.h"
#include "app/PanelWiring.h"
#include "app/PictureControl.h"
#include "app/Recorders.h"
#include "app/SessionControl.h"
#include "app/SettingsControl.h"
#include "app/WheelGuard.h"
#include "app/WindowExports.h"
#include "app/WindowPlace.h"
#include "clustering/panel/SaccadeClusterControl.h"
#include "commands/CommandStack.h"
#include "detection/panel/FixationControl.h"
#include "export/panel/ExportWidget.h"
#include "import/panel/DataWidget.h"
#include "import/panel/DroppedFiles.h"
#include "settings/FirstStart.h"
#include "table/panel/ExaminationTableControl.h"
#include "visualization/panel/VisualizationAOIWidget.h"
#include "visualization/panel/VisualizationWidget.h"
#include "visualization/parameters/GroupColors.h"

#include <QCloseEvent>
#include <QMessageBox>

Vistrum::Vistrum(QWidget *parent) : QMainWindow(parent), m_ui(std::make_unique<Ui::Vistrum>())
{
    m_log.clear();
    m_log.write(QStringLiteral("Starting program"));
    m_ui->setupUi(this);
    m_notice = new NoticeLine(this);
    m_notice->setDrawnCheck([this](DataKind kind) { return m_picture->records()[kind]->visualizationMode != 0; });
    m_ui->statusBar->addWidget(m_notice, 1);
    dividePanes(*m_ui->splitter, width());
    constexpr QSize leastPanels(330, 380); // pages scroll; the widest would keep the window from small screens
    m_ui->control->setMinimumSize(leastPanels);
    makeControls();
    makeTable();
    makeMenus();
    makeRegionDialog();
    connectControls();
    (new WheelGuard(this))->guard(*this);
    setAcceptDrops(true);
    m_ui->visualization->setAcceptDrops(false); // the window takes them
    m_ui->visualization->viewport()->setAcceptDrops(false);
}

Vistrum::~Vistrum()
{
    if (timeline().isDetached())
        slt_reinsert_timeline(&timeline()); // so that it ends with its parent
}

Timeline &Vistrum::timeline() const
{
    return *m_ui->timeline_widget;
}

// ---- what the window is made of

void Vistrum::makeControls()
{
    controlWidget &control = *m_ui->control;
    m_picture = std::make_unique<PictureControl>(*m_ui, m_model, *this);
    control.setModel(&m_model);
    control.setMainWindow(this);
    control.setLog(&m_log);
    m_picture->sltUpdateImageView(m_ui->image_comboBox->currentIndex());
    m_recorders =
        std::make_unique<Recorders>(*m_ui->visualization, m_log, [this] { return m_picture->chosenPicture(); });
    m_diagram = std::make_unique<DiagramControl>([this] { return m_picture->context(); }, control);
    m_settings = std::make_unique<SettingsControl>(*this, m_log);
    m_regionDialog = std::make_unique<add_heatmap_aoi>();
    m_session = std::make_unique<SessionControl>(m_model, *control.saccadeClusterControl().saccadeClusterModel(),
                                                 *m_picture, *this);
    m_exports = std::make_unique<WindowExports>(
        WindowExports::Sources{*m_picture, *m_session, control, *m_regionDialog, m_log, *this});
    m_calculations = std::make_unique<CalculationControl>(
        CalculationControl::Sources{m_model, *m_picture, *m_session, control, m_log, *this});
}

void Vistrum::makeTable()
{
    using Control = ExaminationTableControl;
    m_table = new Control(*m_ui->tableWidget, *m_ui->groupByComboBox, m_model, *this, this);
    m_table->setColorTable([this] { return groupColors(m_picture->records()); });
    connect(m_ui->check_Button, &QPushButton::clicked, m_table, &Control::sltCheck);
    connect(m_ui->uncheck_Button, &QPushButton::clicked, m_table, &Control::sltUncheck);
    connect(m_ui->filterButton, &QPushButton::clicked, m_table, &Control::sltShowFilterDialog);
    connect(m_ui->clearFilterButton, &QPushButton::clicked, m_table, &Control::sltClearFilter);
    connect(m_ui->qualityButton, &QPushButton::clicked, m_table, &Control::sltShowQuality);
    connect(m_ui->manageGroupsButton, &QPushButton::clicked, m_table, &Control::sltManageGroups);
    connect(m_table, &Control::rowsAdded, m_picture.get(), &PictureControl::rebuildImageList);
    connect(m_table, &Control::rowsAdded, &m_ui->control->exportWidget(), &ExportWidget::sltEnableQualityExport);
    connect(m_table, &Control::timeSpanWanted, &timeline(), &Timeline::setTimeSpan);
    connect(m_table, &Control::groupsChanged, this, &Vistrum::refreshGroups);
    connect(m_table, &Control::sigSetSaccadeClusterStatusNone, m_calculations.get(),
            &CalculationControl::sigSetSaccadeClusterStatusNone);
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
    connect(m_ui->action_Methods, &QAction::triggered, m_session.get(), &SessionControl::sltShowMethods);
    connect(m_ui->action_SaveRecipe, &QAction::triggered, m_session.get(), &SessionControl::sltSaveRecipe);
    connect(m_ui->action_About, &QAction::triggered, this, [this] { showAbout(this); });
    connect(m_ui->action_Help, &QAction::triggered, this, [this] {
        showPage(this, findDocumentation(QStringLiteral("README.md"), QCoreApplication::applicationDirPath()));
    });
    connect(m_ui->action_Recorder, &QAction::triggered, this, &Vistrum::sltEyeTribeRecorder);
    connect(m_ui->action_SaveSettings, &QAction::triggered, m_settings.get(), &SettingsControl::sltSaveRegistry);
    connect(m_ui->action_ImportSettings, &QAction::triggered, m_settings.get(), &SettingsControl::sltImportRegistry);
    connect(m_ui->action_LoadDefaultSettings, &QAction::triggered, m_settings.get(),
            &SettingsControl::sltResetSettings);
}

void Vistrum::makeRegionDialog()
{
    controlWidget &control = *m_ui->control;
    m_regionDialog->setModel(&m_model);
    m_regionDialog->setMainWindow(this);
    m_regionDialog->setLog(&m_log);
    m_regionDialog->setInsert([&control](const QList<AreaOfInterest> &aois) { control.aoiControl().insertAll(aois); });
    m_regionDialog->setAttribute(Qt::WA_QuitOnClose, false); // the program ends with its main window
    connect(&control, &controlWidget::sigAddAOIsHeatmap, this, &Vistrum::sltAddAOIsHeatmap);
    connect(&control, &controlWidget::sigAddAOIsGrid, this, &Vistrum::sltAddAOIsGrid);
    connect(m_regionDialog.get(), &add_heatmap_aoi::sigGenAOIs, m_picture.get(), &PictureControl::sltUpdateAndRedraw);
}

/// Who hears whom.
void Vistrum::connectControls()
{
    controlWidget &control = *m_ui->control;
    connectPanels(control);
    connect(m_picture.get(), &PictureControl::told, this, &Vistrum::tell);
    connect(m_picture.get(), &PictureControl::withdrawn, m_notice, &NoticeLine::withdraw);
    connect(m_picture.get(), &PictureControl::aboutToDraw, m_notice, &NoticeLine::refresh);
    connect(m_exports.get(), &WindowExports::told, this, &Vistrum::tell);
    connect(m_settings.get(), &SettingsControl::told, this, &Vistrum::tell);
    connect(m_picture.get(), &PictureControl::aboutToDraw, m_diagram.get(), &DiagramControl::hide);
    connect(&control.dataWidget(), &DataWidget::sigLoadTimeline, this, &Vistrum::refreshGroups);
    connect(&control, &controlWidget::sigShowTable, this, &Vistrum::sltShowTable);
    connect(&control, &controlWidget::sigShowTimeline, this, &Vistrum::sltShowTimeline);
    connect(&timeline(), &Timeline::timespanChanged, &control, &controlWidget::sltTimespanHasChanged);
    connect(&timeline(), &Timeline::reinsert_widget, this, &Vistrum::slt_reinsert_timeline);
    connect(&control, &controlWidget::sigUpdateTimeframe, &timeline(), &Timeline::setSliderTimeframe);
    const SettingsControl *settings = m_settings.get();
    connect(settings, &SettingsControl::sigUpdateSettings, &control, &controlWidget::sltUpdateSettings);
    connect(settings, &SettingsControl::sigUpdateSettings, &control.fixationControl(),
            &FixationControl::sltUpdateSettings);
    connect(settings, &SettingsControl::sigUpdateSettings, &control.areasWidget(),
            &VisualizationAOIWidget::sltUpdateSettings);
    for (VisualizationWidget *panel : control.visualizationWidgets())
        connect(settings, &SettingsControl::sigUpdateSettings, panel, &VisualizationWidget::sltUpdateSettings);
}

void Vistrum::setPageOpener(const std::function<void(const QUrl &)> &open)
{
    m_diagram->setPageOpener(open);
}

// ---- what commands and panels need of the window

void Vistrum::addTableRow(const Examination &examination)
{
    m_table->addExamination(examination);
}

void Vistrum::removeTableRows(const QList<int> &numbers)
{
    m_ui->tableWidget->removeSortedExaminations(numbers);
}

void Vistrum::refreshPlainBackground()
{
    m_picture->refreshPlain();
}

void Vistrum::showImported()
{
    m_picture->sltDrawPaths();
}

int Vistrum::stimulusWidthPx() const
{
    return m_picture->background().width();
}

QPixmap Vistrum::stimulus() const
{
    return m_picture->background();
}

bool Vistrum::hasStimulus() const
{
    return m_picture->hasStimulus();
}

void Vistrum::holdRedraw()
{
    m_picture->hold();
}

void Vistrum::releaseRedraw()
{
    m_picture->release();
}

void Vistrum::redraw()
{
    m_picture->redraw();
}

void Vistrum::updateAndRedraw()
{
    m_picture->redraw();
}

void Vistrum::tell(const Notice &notice)
{
    m_notice->tell(notice);
}

// ---- areas and recorders

void Vistrum::refreshGroups()
{
    for (VisualizationWidget *panel : m_ui->control->visualizationWidgets())
        panel->refreshGroups();
}

void Vistrum::sltAddAOIsHeatmap()
{
    m_regionDialog->show();
    m_regionDialog->raise();
}

void Vistrum::sltAddAOIsGrid()
{
    m_ui->control->aoiControl().insertAll(aoisOf(gridAois()));
}

void Vistrum::sltEyeTribeRecorder()
{
    m_recorders->open();
}

// ---- place and files

void Vistrum::sltShowTable(bool shown)
{
    m_ui->tableWidget->setVisible(shown);
}

void Vistrum::sltShowTimeline(bool shown)
{
    timeline().setVisible(shown);
}

void Vistrum::slt_reinsert_timeline(QWidget *timeline)
{
    m_ui->verticalLayout->insertWidget(0, timeline);
    timeline->show();
}

bool Vistrum::restorePlace()
{
    return ::restorePlace(*this, *m_ui->splitter);
}

void Vistrum::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    if (m_picture->isFitted())
        m_picture->sltFitToScreen(); // the window gets its size in steps; a scale that the user chose stays
    redraw();
}

void Vistrum::importFiles(const QStringList &paths)
{
    const QStringList emptyFolders = m_ui->control->dataWidget().importFiles(paths);
    if (!emptyFolders.isEmpty())
        tell({QStringLiteral("No recording in %1").arg(emptyFolders.join(QStringLiteral(", "))), {}, {}});
}

void Vistrum::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void Vistrum::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    importFiles(droppedFiles(*event->mimeData()));
}

void Vistrum::closeEvent(QCloseEvent *event)
{
    m_settings->tellUnwritten(); // before the question, so that there is a way back
    const auto answer =
        QMessageBox::question(this, QStringLiteral("Vistrum"), QStringLiteral("Do you really want to quit Vistrum?\n"),
                              QMessageBox::Yes | QMessageBox::No);
    if (answer != QMessageBox::Yes) {
        event->ignore();
        return;
    }
    rememberPlace(*this, *m_ui->splitter);
    m_log.write(QStringLiteral("Application closed by user."));
    event->accept();
}
