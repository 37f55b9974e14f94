// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PictureControl.h"
#include "ui_Vistrum.h"

#include "aoi/panel/CancellableProgress.h"
#include "base/Messages.h"
#include "clustering/panel/SaccadeClusterControl.h"
#include "commands/ChangesPicture.h"
#include "commands/CommandStack.h"
#include "detection/panel/FixationControl.h"
#include "import/panel/CorrectionControl.h"
#include "import/panel/DataCommands.h"
#include "import/panel/DataWidget.h"
#include "model/OutlierCut.h"
#include "model/PictureFile.h"
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"
#include "visualization/modes/Picture.h"
#include "visualization/panel/VisualizationAOIWidget.h"
#include "visualization/panel/VisualizationSaccadeClustersWidget.h"
#include "visualization/panel/VisualizationWidget.h"
#include "visualization/timeline/ActivityCurves.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGraphicsPixmapItem>

#include <algorithm>

PictureControl::PictureControl(const Ui::Vistrum &form, DataModel &model, QWidget &window)
    : m_form(form)
    , m_model(model)
    , m_window(window)
    , m_commandIndex(CommandStack::instance().index())
{
    form.visualization->setScene(&m_scene);
    connect(form.image_comboBox, &QComboBox::currentIndexChanged, this, &PictureControl::sltUpdateImageView);
    connect(form.fitToScreenButton, &QPushButton::clicked, this, &PictureControl::sltFitToScreen);
    connect(form.originalSiteButton, &QPushButton::clicked, this, &PictureControl::sltOriginalSize);
    connect(form.loadPictureButton, &QPushButton::clicked, this, &PictureControl::sltImportPicture);
    connect(form.showBorderCheckBox, &QCheckBox::clicked, this, &PictureControl::sltUpdateBorder);
    connect(form.remove_outlier, &QCheckBox::stateChanged, this, &PictureControl::sltCutData);
    connect(&CommandStack::instance(), &CommandStack::indexChanged, this, &PictureControl::followCommands);
    connect(&timeline(), &Timeline::update_widget, this, &PictureControl::update_timeline_widget);
    followPanels();
}

void PictureControl::followPanels()
{
    controlWidget &control = *m_form.control;
    using Self = PictureControl;
    connect(&control, &controlWidget::sigGraphicsParametersChanged, this, &Self::sltUpdateAndRedraw);
    connect(&control.areasWidget(), &VisualizationAOIWidget::sigGraphicsParametersChanged, this,
            &Self::sltUpdateAndRedraw);
    for (const VisualizationWidget *panel : control.visualizationWidgets()) {
        connect(panel, &VisualizationWidget::sigGraphicsParametersChanged, this, &Self::sltUpdateAndRedraw);
        connect(panel, &VisualizationWidget::sigExportheatmap, this, &Self::sltExportheatmap);
    }
    connect(&control.dataWidget(), &DataWidget::sigLoadTimeline, this, &Self::sltDrawPaths);
    control.saccadeClustersWidget().setScene(&m_scene);
    CorrectionControl &correction = control.correctionControl();
    correction.setScene(&m_scene);
    connect(&m_scene, &QGraphicSceneOverlay::sigEllipsesdone, &correction, &CorrectionControl::sltAddEllipsis);
}

Timeline &PictureControl::timeline() const
{
    return *m_form.timeline_widget;
}

DrawingRecords PictureControl::records() const
{
    DrawingRecords records;
    const auto panels = m_form.control->visualizationWidgets();
    std::transform(panels.begin(), panels.end(), records.values.begin(),
                   [](const VisualizationWidget *panel) { return &panel->parameters(); });
    return records;
}

DrawingContext PictureControl::context() const
{
    return {.model = m_model,
            .eyeMode = eyeMode(),
            .frame = {timeline().start(), timeline().end()},
            .records = records(),
            .areas = m_form.control->areasWidget().parameters()};
}

// ---- background

QRectF PictureControl::backgroundArea() const
{
    return m_background->sceneBoundingRect();
}

bool PictureControl::hasStimulus() const
{
    return m_form.image_comboBox->currentIndex() > 0 && !m_backgroundPixmap.isNull();
}

QString PictureControl::chosenPicture() const
{
    return m_model.images().paths().value(m_form.image_comboBox->currentIndex() - 1);
}

/// A list that is as it was stays, and so does the background chosen from it.
void PictureControl::rebuildImageList()
{
    QComboBox &box = *m_form.image_comboBox;
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

void PictureControl::sltImportPicture()
{
    QFileDialog dialog(&m_window, tr("Select Image File"), QString(), QStringLiteral("Image (*.jpg)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().size() != 1)
        return;
    const QString path = dialog.selectedFiles().constFirst();
    CommandStack::instance().push(new CommandPictureImport(m_model, path));
    rebuildImageList();
}

void PictureControl::refreshPlain()
{
    if (m_form.image_comboBox->currentIndex() == 0)
        sltUpdateImageView(0);
}

void PictureControl::sltUpdateImageView(int index)
{
    chooseBackground(index);
    if (m_background)
        m_background->setPixmap(m_backgroundPixmap);
    else
        m_background = addBackground(m_scene, m_backgroundPixmap);
    followSize();
}

void PictureControl::chooseBackground(int index)
{
    m_form.visualization->setUpOnce();
    const QStringList images = m_model.images().paths();
    if (index <= images.size())
        m_backgroundPixmap = m_pictures.pixmap(index < 1 ? QString() : images[index - 1]);
    if (m_form.showBorderCheckBox->isChecked())
        drawBorder(m_backgroundPixmap);
    followPicture(images.value(index - 1));
    if (!m_skipOutlierCut)
        cutOrRestoreOutliers();
}

/// A picture that cannot be shown is told once; a redraw must not repeat it.
void PictureControl::followPicture(const QString &path)
{
    m_form.control->fixationControl().showStimulusWidth(m_backgroundPixmap.width());
    const bool isMissed = !path.isEmpty() && m_backgroundPixmap.isNull();
    const QString before = std::exchange(m_missedPicture, isMissed ? path : QString());
    if (!isMissed && !before.isEmpty())
        Q_EMIT withdrawn(m_missedNotice);
    if (!isMissed || before == path)
        return;
    QString problem;
    readPicture(path, &problem);
    m_missedNotice = {
        QStringLiteral("The picture cannot be shown: %1").arg(QFileInfo(path).fileName()),
        {QStringLiteral("%1: %2. Without a picture there is no size, and nothing is removed at its edge. Save it anew, "
                        "as PNG or JPEG, and choose it again.")
             .arg(path, problem)},
        {}};
    Q_EMIT told(m_missedNotice);
}

void PictureControl::cutOrRestoreOutliers()
{
    if (m_form.remove_outlier->isChecked())
        cutOutliers(m_model, m_cutPicture = m_backgroundPixmap.size());
    else
        restoreOutliers(m_model);
    for (const Examination &examination : std::as_const(m_model).examinations())
        m_form.tableWidget->showChoices(examination);
    m_form.control->saccadeClusterControl().sltDataChanged();
}

void PictureControl::sltCutData(int)
{
    m_skipOutlierCut = false;
    redraw();
    m_skipOutlierCut = true;
}

void PictureControl::sltUpdateBorder()
{
    sltUpdateImageView(m_form.image_comboBox->currentIndex());
}

void PictureControl::sltFitToScreen()
{
    m_form.visualization->fit(areaToShow());
    m_fittedSize = m_backgroundPixmap.size();
    m_fittedScale = m_form.visualization->transform();
}

bool PictureControl::isFitted() const
{
    return m_form.visualization->transform() == m_fittedScale;
}

/// A picture of another size is seen as a whole, too, unless the user has chosen a scale.
void PictureControl::followSize()
{
    if (m_backgroundPixmap.size() != m_fittedSize && isFitted())
        sltFitToScreen();
}

QRectF PictureControl::areaToShow() const
{
    const QRectF picture = m_backgroundPixmap.rect();
    return m_hasChart ? picture | m_scene.itemsBoundingRect() : picture;
}

/// A chart that comes out of sight is shown once; when it goes, the view goes back unless the user has chosen a scale.
void PictureControl::followChart()
{
    const bool hadChart = std::exchange(m_hasChart, hasChart(context()));
    if (hadChart == m_hasChart)
        return;
    const QGraphicsView &view = *m_form.visualization;
    const QRectF seen = view.mapToScene(view.viewport()->rect()).boundingRect();
    const bool isOutOfSight = m_hasChart && !seen.contains(areaToShow());
    if (isOutOfSight || isFitted())
        sltFitToScreen();
}

void PictureControl::sltOriginalSize()
{
    m_form.visualization->fit(QRectF(QPointF(0, 0), m_form.visualization->size()));
}

// ---- drawing

/// What commands changed outside of any panel is seen in the picture and in the list of images.
void PictureControl::followCommands(int index)
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

void PictureControl::sltDrawPaths()
{
    m_skipOutlierCut = false;
    sltUpdateImageView(m_form.image_comboBox->currentIndex());
    m_skipOutlierCut = true;
    if (m_model.checkedExaminations().isEmpty()) {
        messages::information(QStringLiteral("No examination selected"),
                              QStringLiteral("Please select an examination first"));
        return;
    }
    // Kept: not unique, so that after a second import each move of the timeline draws twice, after a third three times.
    // The plain form is Qt::UniqueConnection; the picture is the same.
    connect(&timeline(), &Timeline::sliderChanged, this, &PictureControl::redraw);
    connect(&timeline(), &Timeline::sliderChanged, m_form.control, &controlWidget::sltTimelineHasChanged);
    timeline().setTimeSpan(m_model.longestCheckedDuration());
}

void PictureControl::hold()
{
    if (m_holds++ == 0)
        m_form.tableWidget->setHeld(true);
}

void PictureControl::release()
{
    if (--m_holds > 0)
        return;
    m_form.tableWidget->setHeld(false);
    if (std::exchange(m_isMissed, false))
        redraw();
}

void PictureControl::redraw()
{
    if (m_holds > 0) {
        m_isMissed = true;
        return;
    }
    Q_EMIT aboutToDraw();
    const QImage saliency = saliencyOverlay();
    update_timeline_widget();
    chooseBackground(m_form.image_comboBox->currentIndex());
    SettingsStore().sync();
    const DrawnScene drawn = runDrawingPass(m_scene, m_model, context(), layers(saliency));
    m_background = drawn.background;
    m_figures = drawn.figures;
    followSize();
    followChart();
    m_form.control->saccadeClustersWidget().adoptGroup(drawn.saccadeClusters);
    const auto panels = m_form.control->visualizationWidgets();
    for (const HeatmapFigures &figures : drawn.figures)
        panels[static_cast<std::size_t>(figures.kind)]->showFigures(figures);
}

void PictureControl::sltUpdateAndRedraw()
{
    redraw();
}

SceneLayers PictureControl::layers()
{
    return layers(saliencyOverlay());
}

SceneLayers PictureControl::layers(const QImage &saliency) const
{
    SceneLayers layers{
        .background = m_backgroundPixmap,
        .overlay = saliency,
        .saccadeClusters = m_form.control->saccadeClustersWidget().arrows(),
    };
    CorrectionControl &correction = m_form.control->correctionControl();
    if (correction.isUsed())
        layers.addOverData = [&correction](QGraphicsScene &scene) { addCorrectionItems(scene, correction.overlay()); };
    return layers;
}

/// Null without a method, and without a picture, which is told once. Nothing is drawn meanwhile: the caller is about
/// to.
QImage PictureControl::saliencyOverlay()
{
    const int method = m_form.control->saliencyMethod();
    const bool isMissing = method > 0 && !hasStimulus();
    if (isMissing && !std::exchange(m_toldMissingPicture, true))
        messages::information(tr("No picture"), tr("Saliency is that of a picture. Please choose one as background."));
    if (method < 1 || isMissing)
        return {};
    m_toldMissingPicture = false;
    ++m_holds;
    const CancellableProgress progress(&m_window);
    QImage overlay = m_saliency.image(static_cast<SaliencyMethod>(method), m_backgroundPixmap.toImage(),
                                      m_model.saliencyParameters, progress.token());
    --m_holds;
    return overlay;
}

void PictureControl::sltExportheatmap(int id)
{
    drawHeatmapOnTop(m_scene, static_cast<DataKind>(id), context());
}

void PictureControl::update_timeline_widget()
{
    const ActivityCurves curves = activityCurves(m_model, eyeMode(), timeline().width(),
                                                 [this](qint64 timeMs) { return timeline().timeToPixel(timeMs); });
    timeline().setCurve1(curves.samples);
    timeline().setCurve2(curves.distances);
}
