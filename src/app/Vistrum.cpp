// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Vistrum.h"
#include "ui_Vistrum.h"

#include "aoi/generation/GridAois.h"
#include "aoi/panel/add_heatmap_aoi.h"
#include "aoi/panel/AoiControl.h"
#include "aoi/panel/CancellableProgress.h"
#include "app/NoticeLine.h"
#include "app/Recorders.h"
#include "app/SettingsDialogs.h"
#include "app/WindowPlace.h"
#include "base/Messages.h"
#include "commands/ChangesPicture.h"
#include "commands/CommandStack.h"
#include "detection/panel/FixationControl.h"
#include "diagram/panel/add_diagram.h"
#include "export/panel/ExportWidget.h"
#include "export/TransitionTables.h"
#include "import/panel/DataCommands.h"
#include "import/panel/DataWidget.h"
#include "model/OutlierCut.h"
#include "settings/FirstStart.h"
#include "settings/Registry.h"
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"
#include "table/panel/ExaminationTableControl.h"
#include "visualization/panel/VisualizationAOIWidget.h"
#include "visualization/panel/VisualizationSaccadeClustersWidget.h"
#include "visualization/panel/VisualizationWidget.h"
#include "visualization/scene/DrawingPass.h"
#include "visualization/timeline/ActivityCurves.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QGraphicsPixmapItem>
#include <QImageReader>
#include <QMessageBox>
#include <QMimeData>

#include <algorithm>

Vistrum::Vistrum(QWidget *parent)
    : QMainWindow(parent)
    , m_regionDialog(std::make_unique<add_heatmap_aoi>())
    , m_diagram(std::make_unique<add_diagram>())
    , m_openPage([](const QUrl &page) { QDesktopServices::openUrl(page); })
    , m_ui(std::make_unique<Ui::Vistrum>())
{
    m_log.clear();
    m_log.write(QStringLiteral("Starting program"));
    m_ui->setupUi(this);
    m_notice = new NoticeLine(this);
    m_ui->statusBar->addWidget(m_notice, 1);
    dividePanes(*m_ui->splitter, width());
    constexpr QSize leastPanels(330,
                                380); // pages scroll; without this the widest would keep the window from small screens
    m_ui->control->setMinimumSize(leastPanels);
    m_ui->control->setModel(&m_model);
    m_ui->control->setMainWindow(this);
    m_ui->control->setLog(&m_log);
    m_ui->visualization->setScene(&m_scene);
    sltUpdateImageView(m_ui->image_comboBox->currentIndex());
    m_recorders = std::make_unique<Recorders>(*m_ui->visualization, m_log, [this] {
        return m_model.images().paths().value(m_ui->image_comboBox->currentIndex() - 1);
    });
    makeTable();
    connectForm();
    connectPanels();
    connectAreas();
    connectExports();
    connectCorrection();
    makeSession();
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

DrawingRecords Vistrum::drawingRecords() const
{
    DrawingRecords records;
    const auto panels = m_ui->control->visualizationWidgets();
    std::transform(panels.begin(), panels.end(), records.values.begin(),
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
    m_ui->tableWidget->removeSortedExaminations(numbers);
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

void Vistrum::sltEyeTribeRecorder()
{
    m_recorders->open();
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
    chooseBackground(index);
    if (m_background)
        m_background->setPixmap(m_backgroundPixmap);
    else
        m_background = addBackground(m_scene, m_backgroundPixmap);
}

void Vistrum::chooseBackground(int index)
{
    m_ui->visualization->setUpOnce();
    const QStringList images = m_model.images().paths();
    if (index <= images.size())
        m_backgroundPixmap = m_pictures.pixmap(index < 1 ? QString() : images[index - 1]);
    if (m_ui->showBorderCheckBox->isChecked())
        drawBorder(m_backgroundPixmap);
    followPicture(index >= 1 && index <= images.size() ? images[index - 1] : QString());
    if (!m_skipOutlierCut)
        cutOrRestoreOutliers();
}

/// A picture that cannot be shown is told once; a redraw must not repeat it.
void Vistrum::followPicture(const QString &path)
{
    m_ui->control->fixationControl().showStimulusWidth(stimulusWidthPx());
    const bool isMissed = !path.isEmpty() && m_backgroundPixmap.isNull();
    const QString before = std::exchange(m_missedPicture, isMissed ? path : QString());
    if (!isMissed || before == path)
        return;
    QImageReader reader(path);
    reader.read();
    tell({QStringLiteral("The picture cannot be shown: %1").arg(QFileInfo(path).fileName()),
          {QStringLiteral(
               "%1: %2. Without a picture there is no size, and nothing is removed at its edge. Save it anew, "
               "as PNG or JPEG, and choose it again.")
               .arg(path, reader.errorString())},
          {}});
}

void Vistrum::cutOrRestoreOutliers()
{
    if (m_ui->remove_outlier->isChecked())
        cutOutliers(m_model, m_cutPicture = m_backgroundPixmap.size());
    else
        restoreOutliers(m_model);
    for (const Examination &examination : std::as_const(m_model).examinations())
        m_ui->tableWidget->showChoices(examination);
}

/// What commands changed outside of any panel is seen in the picture and in the list of images.
void Vistrum::followCommands(int index)
{
    const CommandStack &stack = CommandStack::instance();
    const auto [from, to] = std::minmax({index, std::exchange(m_commandIndex, index)});
    bool isChanged = false;
    for (int i = from; i < std::min(to, stack.count()); ++i)
        isChanged = isChanged || dynamic_cast<const ChangesPicture *>(stack.command(i));
    if (!isChanged)
        return;
    rebuildImageList();
    redraw();
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
    if (hasAreasAndFixations(m_model))
        Q_EMIT sigEnable_trans_matrix_export();
    m_diagram->hide();
    const QImage saliency = saliencyOverlay();
    update_timeline_widget();
    chooseBackground(m_ui->image_comboBox->currentIndex());
    SettingsStore().sync();
    VisualizationSaccadeClustersWidget &saccadeClusters = m_ui->control->saccadeClustersWidget();
    const DrawnScene drawn =
        runDrawingPass(m_scene, m_model, drawingContext(),
                       {m_backgroundPixmap, saliency, saccadeClusters.arrows(), correctionOverlay()});
    m_background = drawn.background;
    m_figures = drawn.figures;
    saccadeClusters.adoptGroup(drawn.saccadeClusters);
    const auto panels = m_ui->control->visualizationWidgets();
    for (const HeatmapFigures &figures : drawn.figures)
        panels[static_cast<std::size_t>(figures.kind)]->showFigures(figures);
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
    return {.model = m_model,
            .eyeMode = eyeMode(),
            .frame = {timeline().start(), timeline().end()},
            .records = drawingRecords(),
            .areas = m_ui->control->areasWidget().parameters()};
}

void Vistrum::sltExportheatmap(int id)
{
    drawHeatmapOnTop(m_scene, static_cast<DataKind>(id), drawingContext());
}

/// Data that no mode shows would be missed in the picture.
void Vistrum::tell(const Notice &notice)
{
    Notice told = notice;
    if (told.kind && drawingRecords()[*told.kind]->visualizationMode == 0)
        told.text += QStringLiteral("; not drawn: mode none");
    m_notice->tell(told);
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

// ---- settings, place and files

void Vistrum::sltSaveRegistry()
{
    askAndSaveSettings(this, m_log);
}

void Vistrum::sltImportRegistry()
{
    if (askAndLoadSettings(this, m_log))
        Q_EMIT sigUpdateSettings();
}

void Vistrum::sltResetSettings()
{
    if (askForReset(this))
        sltLoadDefaultSettings();
}

void Vistrum::sltLoadDefaultSettings()
{
    Registry(m_log).loadSettings(
        findDataFile(QStringLiteral("factory_settings.ini"), QCoreApplication::applicationDirPath()));
    for (VisualizationWidget *panel : m_ui->control->visualizationWidgets())
        panel->sltUpdateSettings();
    m_ui->control->areasWidget().sltUpdateSettings();
    m_ui->control->fixationControl().sltUpdateSettings();
    m_ui->control->sltUpdateSettings();
}

bool Vistrum::restorePlace()
{
    return ::restorePlace(*this, *m_ui->splitter);
}

void Vistrum::importFiles(const QStringList &paths)
{
    if (!paths.isEmpty() && !m_ui->control->dataWidget().importFiles(paths))
        tell({QStringLiteral("No recording in %1").arg(paths.join(QStringLiteral(", "))), {}, {}});
}

void Vistrum::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void Vistrum::dropEvent(QDropEvent *event)
{
    QStringList paths;
    for (const QUrl &url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    event->acceptProposedAction();
    importFiles(paths);
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
    rememberPlace(*this, *m_ui->splitter);
    m_log.write(QStringLiteral("Application closed by user."));
    event->accept();
}
