#include "app/Vistrum.h"
#include "ui_Vistrum.h"

#include "aoi/generation/GridAois.h"
#include "aoi/panel/add_heatmap_aoi.h"
#include "aoi/panel/AoiControl.h"
#include "aoi/panel/CancellableProgress.h"
#include "base/Messages.h"
#include "clustering/ClusterOrder.h"
#include "commands/CommandStack.h"
#include "detection/panel/FixationControl.h"
#include "export/panel/ExportWidget.h"
#include "import/panel/DataCommands.h"
#include "import/panel/DataWidget.h"
#include "model/OutlierCut.h"
#include "settings/FirstStart.h"
#include "settings/Registry.h"
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"
#include "table/panel/ExaminationTableControl.h"
#include "visualization/heatmap/Heatmap.h"
#include "visualization/panel/VisualizationAOIWidget.h"
#include "visualization/panel/VisualizationSaccadeClustersWidget.h"
#include "visualization/panel/VisualizationWidget.h"
#include "visualization/scene/DrawingPass.h"
#include "visualization/scene/SceneItems.h"
#include "visualization/timeline/ActivityCurves.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QGraphicsPixmapItem>
#include <QMessageBox>

#include <algorithm>

Vistrum::Vistrum(QWidget *parent)
    : QMainWindow(parent)
    , m_regionDialog(std::make_unique<add_heatmap_aoi>())
    , m_ui(std::make_unique<Ui::Vistrum>())
{
    m_log.clear();
    m_log.write(QStringLiteral("Starting program"));
    m_ui->setupUi(this);
    constexpr int shares[] = {1, 4, 2}; // of the width: table, picture, panels
    for (int pane = 0; pane < 3; ++pane)
        m_ui->splitter->setStretchFactor(pane, shares[pane]);
    m_ui->splitter->setSizes({shares[0] * width(), shares[1] * width(), shares[2] * width()});
    m_ui->control->setModel(&m_model);
    m_ui->control->setMainWindow(this);
    m_ui->control->setLog(&m_log);
    m_ui->visualization->setScene(&m_scene);
    sltUpdateImageView(m_ui->image_comboBox->currentIndex());
    makeTable();
    connectForm();
    connectPanels();
    connectAreas();
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

std::array<const VisualizationParameters *, 4> Vistrum::drawingParameters() const
{
    std::array<const VisualizationParameters *, 4> records{};
    const auto panels = m_ui->control->visualizationWidgets();
    std::transform(panels.begin(), panels.end(), records.begin(),
                   [](const VisualizationWidget *panel) { return &panel->parameters(); });
    return records;
}

// ---- table and images

void Vistrum::addTableRow(const Examination &examination)
{
    m_table->addExamination(examination);
}

void Vistrum::removeTableRows(const QList<int> &numbers)
{
    m_ui->tableWidget->removeExaminations(numbers);
}

/// A list that is as it was stays, and so does the background chosen from it.
void Vistrum::rebuildImageList()
{
    QComboBox &box = *m_ui->image_comboBox;
    const QStringList names = m_model.images().names();
    QStringList shown;
    for (int i = 1; i < box.count(); ++i)
        shown << box.itemText(i);
    if (shown == names)
        return;
    while (box.count() > 1)
        box.removeItem(1);
    box.addItems(names);
}

void Vistrum::sltImportPicture()
{
    QFileDialog dialog(this, tr("Select Image File"), QString(), QStringLiteral("Image (*.jpg)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().size() != 1)
        return;
    const QString path = dialog.selectedFiles().constFirst();
    CommandStack::instance().push(new CommandPictureImport(m_model, path));
    rebuildImageList();
}

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

void Vistrum::sltShowTable(bool shown)
{
    m_ui->tableWidget->setVisible(shown);
}

// ---- background

void Vistrum::showImported()
{
    sltDrawPaths();
}

int Vistrum::stimulusWidthPx() const
{
    return m_backgroundPixmap.width();
}

bool Vistrum::hasStimulus() const
{
    return m_ui->image_comboBox->currentIndex() > 0 && !m_backgroundPixmap.isNull();
}

void Vistrum::refreshPlainBackground()
{
    if (m_ui->image_comboBox->currentIndex() == 0)
        sltUpdateImageView(0);
}

void Vistrum::sltUpdateImageView(int index)
{
    if (m_background) {
        m_scene.removeItem(m_background);
        const std::unique_ptr<QGraphicsPixmapItem> gone(std::exchange(m_background, nullptr));
    }
    m_ui->visualization->setUpOnce();
    const QStringList images = m_model.images().paths();
    if (index <= images.size())
        m_backgroundPixmap = m_pictures.pixmap(index < 1 ? QString() : images[index - 1]);
    if (m_ui->showBorderCheckBox->isChecked())
        drawBorder(m_backgroundPixmap);
    m_background = addBackground(m_scene, m_backgroundPixmap);
    if (!m_skipOutlierCut)
        cutOrRestoreOutliers();
}

void Vistrum::cutOrRestoreOutliers()
{
    if (m_ui->remove_outlier->isChecked())
        cutOutliers(m_model, m_backgroundPixmap.size());
    else
        restoreOutliers(m_model);
}

void Vistrum::sltCutData(int)
{
    m_skipOutlierCut = false;
    sltUpdateAndRedraw();
    m_skipOutlierCut = true;
}

void Vistrum::sltUpdateBorder()
{
    sltUpdateImageView(m_ui->image_comboBox->currentIndex());
}

void Vistrum::sltFitToScreen()
{
    m_ui->visualization->fit(m_backgroundPixmap.rect());
}

void Vistrum::sltOriginalSize()
{
    m_ui->visualization->fit(QRectF(QPointF(0, 0), m_ui->visualization->size()));
}

// ---- drawing

void Vistrum::sltCalculateFixations()
{
    Q_EMIT sigEnable_fixation_export();
    Q_EMIT sigEnable_event_export();
    Q_EMIT sigSetSaccadeClusterStatusNone();
    redraw();
}

void Vistrum::sltCalculateClusters()
{
    Q_EMIT sigEnable_fixationcluster_export();
    redraw();
}

void Vistrum::sltCalculateCumulativeClusters()
{
    if (!m_model.checkedExaminations().isEmpty())
        Q_EMIT sigEnable_cumulativecluster_export();
    redraw();
}

void Vistrum::sltDrawPaths()
{
    m_skipOutlierCut = false;
    sltUpdateImageView(m_ui->image_comboBox->currentIndex());
    m_skipOutlierCut = true;
    if (m_model.checkedExaminations().isEmpty()) {
        messages::information(QStringLiteral("No examination selected"),
                              QStringLiteral("Please select an examination first"));
        return;
    }
    // Not unique: after a second import each move of the timeline draws twice, and so on.
    connect(&timeline(), &Timeline::sliderChanged, this, &Vistrum::redraw);
    connect(&timeline(), &Timeline::sliderChanged, m_ui->control, &controlWidget::sltTimelineHasChanged);
    timeline().setTimeSpan(m_model.longestCheckedDuration());
}

void Vistrum::holdRedraw()
{
    ++m_redrawHolds;
}

void Vistrum::releaseRedraw()
{
    if (--m_redrawHolds == 0 && std::exchange(m_redrawMissed, false))
        redraw();
}

void Vistrum::redraw()
{
    if (m_redrawHolds > 0) {
        m_redrawMissed = true;
        return;
    }
    const QImage saliency = saliencyOverlay();
    orderClusters(m_model, {timeline().start(), timeline().end()});
    update_timeline_widget();
    VisualizationSaccadeClustersWidget &saccadeClusters = m_ui->control->saccadeClustersWidget();
    saccadeClusters.removeClusters(); // the panel keeps a pointer to its items
    m_background = nullptr;           // goes with the scene's items
    m_scene.clear();
    sltUpdateImageView(m_ui->image_comboBox->currentIndex());
    SettingsStore().sync();
    if (!saliency.isNull())
        addItems(m_scene, {RasterShape{saliency}}); // over the picture, below everything else
    const auto panels = m_ui->control->visualizationWidgets();
    for (const HeatmapFigures &figures : runDrawingPass(m_scene, m_model, drawingContext()))
        panels[static_cast<std::size_t>(figures.kind)]->showFigures(figures);
    saccadeClusters.sltRedrawClusters();
}

/// Null without a method, and without a picture, which is told once. Nothing is drawn meanwhile: the caller is about
/// to.
QImage Vistrum::saliencyOverlay()
{
    const int method = m_ui->control->saliencyMethod();
    const bool isMissing = method > 0 && !hasStimulus();
    if (isMissing && !std::exchange(m_toldMissingPicture, true))
        messages::information(tr("No picture"), tr("Saliency is that of a picture. Please choose one as background."));
    if (method < 1 || isMissing)
        return {};
    m_toldMissingPicture = false;
    ++m_redrawHolds;
    const CancellableProgress progress(this);
    const QImage overlay = m_saliency.image(static_cast<SaliencyMethod>(method), m_backgroundPixmap.toImage(),
                                            m_model.saliencyParameters, progress.token());
    --m_redrawHolds;
    return overlay;
}

DrawingContext Vistrum::drawingContext() const
{
    const auto [gazePoints, fixations, clusters, saccades] = drawingParameters();
    return {.model = m_model,
            .eyeMode = eyeMode(),
            .frame = {timeline().start(), timeline().end()},
            .gazePoints = *gazePoints,
            .fixations = *fixations,
            .clusters = *clusters,
            .saccades = *saccades,
            .areas = m_ui->control->areasWidget().parameters()};
}

/// On top of what is drawn, until the next redraw: what is exported then shows the heatmap.
void Vistrum::sltExportheatmap(int id)
{
    constexpr Heatmap (*heatmaps[])(const DrawingContext &, HeatmapLook) = {drawGazeHeatmap, drawFixationHeatmap,
                                                                            drawClusterHeatmap, drawSaccadeHeatmap};
    const Heatmap heatmap = heatmaps[id](drawingContext(), HeatmapLook::RelativeScale);
    if (!heatmap.image.isNull())
        addItems(m_scene, {RasterShape{heatmap.image}});
}

void Vistrum::updateAndRedraw()
{
    sltUpdateAndRedraw();
}

void Vistrum::sltUpdateAndRedraw()
{
    redraw();
}

// ---- timeline

void Vistrum::update_timeline_widget()
{
    const ActivityCurves curves = activityCurves(m_model, eyeMode(), timeline().width(),
                                                 [this](qint64 timeMs) { return timeline().timeToPixel(timeMs); });
    timeline().setCurve1(curves.samples);
    timeline().setCurve2(curves.distances);
}

void Vistrum::slt_reinsert_timeline(QWidget *timeline)
{
    m_ui->verticalLayout->insertWidget(0, timeline);
    timeline->show();
}

void Vistrum::sltShowTimeline(bool shown)
{
    timeline().setVisible(shown);
}

void Vistrum::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    if (m_model.examinations().isEmpty())
        sltFitToScreen(); // the window gets its size after the start, in steps; later the user's own zoom stays
    redraw();
}

// ---- settings

void Vistrum::sltSaveRegistry()
{
    const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save Vistrum Settings"),
                                                      QStringLiteral("."), QStringLiteral("Settings (*.ini)"));
    if (!path.isEmpty())
        Registry(m_log).saveSettings(path);
}

void Vistrum::sltImportRegistry()
{
    QFileDialog dialog(this, QStringLiteral("Select Vistrum settings"), QString(), QStringLiteral("Settings (*.ini)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().size() != 1)
        return;
    Registry(m_log).loadSettings(dialog.selectedFiles().constFirst());
    Q_EMIT sigUpdateSettings();
}

void Vistrum::sltLoadDefaultSettings()
{
    Registry(m_log).loadSettings(
        findDataFile(QStringLiteral("factory_settings.ini"), QCoreApplication::applicationDirPath()));
    for (VisualizationWidget *panel : m_ui->control->visualizationWidgets())
        panel->sltUpdateSettings();
    m_ui->control->areasWidget().sltUpdateSettings();
    m_ui->control->fixationControl().sltUpdateSettings();
}

void Vistrum::closeEvent(QCloseEvent *event)
{
    const auto answer =
        QMessageBox::question(this, QStringLiteral("Vistrum"), QStringLiteral("Do you really want to quit Vistrum?\n"),
                              QMessageBox::Yes | QMessageBox::No);
    if (answer != QMessageBox::Yes) {
        event->ignore();
        return;
    }
    m_log.write(QStringLiteral("Application closed by user."));
    event->accept();
}
