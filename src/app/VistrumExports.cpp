// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures and charts: what the window writes for the export panel.

#include "app/Vistrum.h"
#include "ui_Vistrum.h"

#include "aoi/panel/add_heatmap_aoi.h"
#include "aoi/panel/CancellableProgress.h"
#include "base/Messages.h"
#include "clustering/panel/ClusterControl.h"
#include "clustering/panel/SaccadeClusterControl.h"
#include "detection/panel/FixationControl.h"
#include "diagram/ChordFiles.h"
#include "diagram/panel/add_diagram.h"
#include "diagram/scene/DiagramExport.h"
#include "export/panel/ExportWidget.h"
#include "export/scene/ChartExport.h"
#include "export/scene/PictureExport.h"
#include "export/scene/VideoExport.h"
#include "visualization/charts/AoiCharts.h"
#include "visualization/charts/ChartKinds.h"
#include "visualization/modes/AoiModes.h"
#include "visualization/panel/VisualizationAOIWidget.h"
#include "visualization/panel/VisualizationSaccadeClustersWidget.h"

#include <QGraphicsPixmapItem>
#include <QUrl>

namespace {

void tellOutcome(const QString &title, const QString &text, const std::optional<QString> &problem)
{
    if (problem)
        messages::warning(title, *problem);
    else
        messages::information(title, text);
}

} // namespace

ReportRecords Vistrum::reportRecords() const
{
    controlWidget &control = *m_ui->control;
    const VisualizationSaccadeClustersWidget &saccades = control.saccadeClustersWidget();
    return {.fixations = control.fixationControl().settings(),
            .clusters = control.clusterControl().parameters(),
            .saccadeClusters = control.saccadeClusterControl().saccadeClusterModel()->parameters(),
            .saccadeClusterMode = saccades.mode(),
            .saccadeClusterStyle = saccades.style(),
            .regions = m_model.aoiList().isEmpty() ? std::nullopt : m_regionDialog->exported()};
}

void Vistrum::sltExportImage(const QString &path)
{
    const ReportRecords records = reportRecords();
    const DrawingContext context = drawingContext();
    const DrawnPicture picture{
        m_scene, m_scene.itemsBoundingRect(), m_background->sceneBoundingRect(), m_figures, context, records};
    if (const auto problem = exportPicture(picture, m_ui->control->exportWidget().pictureSettings(), path))
        messages::warning(QStringLiteral("Save Visualization"), *problem);
}

/// The view stands as it is meanwhile: frames have a scene of their own.
void Vistrum::sltexport_video(const QString &path)
{
    const VideoContent content{
        drawingContext(),
        {m_backgroundPixmap, saliencyOverlay(), m_ui->control->saccadeClustersWidget().arrows(), correctionOverlay()},
        m_scene.itemsBoundingRect()};
    VideoOutcome outcome = VideoOutcome::Stopped;
    {
        const CancellableProgress progress(this);
        const std::stop_token stop = progress.token();
        outcome = exportVideo(content, m_ui->control->exportWidget().videoStepMs(), path, stop);
    }
    messages::information(QString(), videoText(outcome));
}

void Vistrum::exportChart(const QString &kind, const QString &path)
{
    const ChartKind *chart = chartKind(kind);
    const QString title = chart->title + QStringLiteral(" export");
    tellOutcome(title, QStringLiteral("%1 exported to: %2").arg(chart->title, path),
                ::exportChart(*chart, drawingContext(), path));
}

void Vistrum::sltExportSaccadenHistogram(const QString &path)
{
    exportChart(QStringLiteral("saccades"), path);
}

void Vistrum::sltExportSaccadenHistogramsep(const QString &path)
{
    exportChart(QStringLiteral("saccades-by-eye"), path);
}

void Vistrum::sltExportSaccadenFixationHistogramsep(const QString &path)
{
    exportChart(QStringLiteral("saccades-and-fixations"), path);
}

void Vistrum::sltExportFixationHistogram(const QString &path)
{
    exportChart(QStringLiteral("fixations"), path);
}

void Vistrum::sltExportFixationHistogramsep(const QString &path)
{
    exportChart(QStringLiteral("fixations-by-eye"), path);
}

void Vistrum::sltExportAOITimeTransHistogram(const QString &path)
{
    exportChart(QStringLiteral("aoi-transitions"), path);
}

void Vistrum::sltExportAOIFixationHistogram(const QString &path)
{
    exportChart(QStringLiteral("aoi-fixations"), path);
}

void Vistrum::sltExportAOITransitionHistogram(const QString &path)
{
    exportChart(QStringLiteral("aoi-transitions-by-pair"), path);
}

void Vistrum::sltExportAOIFixationShareHistogram(const QString &path)
{
    exportChart(QStringLiteral("aoi-fixation-shares"), path);
}

void Vistrum::connectExports()
{
    const ExportWidget *tables = &m_ui->control->exportWidget();
    connect(tables, &ExportWidget::sigExport_video, this, &Vistrum::sltexport_video);
    connect(tables, &ExportWidget::sigExportVisualization, this, &Vistrum::sltExportImage);
    connect(tables, &ExportWidget::sigExportSaccadenHistogram, this, &Vistrum::sltExportSaccadenHistogram);
    connect(tables, &ExportWidget::sigExportSaccadenHistogramsep, this, &Vistrum::sltExportSaccadenHistogramsep);
    connect(tables, &ExportWidget::sigExportSaccadenFixationenHistogramsep, this,
            &Vistrum::sltExportSaccadenFixationHistogramsep);
    connect(tables, &ExportWidget::sigExportFixationHistogram, this, &Vistrum::sltExportFixationHistogram);
    connect(tables, &ExportWidget::sigExportFixationHistogramsep, this, &Vistrum::sltExportFixationHistogramsep);
    connect(tables, &ExportWidget::sigExportTimeTransHistogram, this, &Vistrum::sltExportAOITimeTransHistogram);
    connect(tables, &ExportWidget::sigExportAOIFixationHistogram, this, &Vistrum::sltExportAOIFixationHistogram);
    connect(tables, &ExportWidget::sigExportAOITransitionHistogram, this, &Vistrum::sltExportAOITransitionHistogram);
    connect(tables, &ExportWidget::sigExportAOIFixationShareHistogram, this,
            &Vistrum::sltExportAOIFixationShareHistogram);
    connect(tables, &ExportWidget::sigExport_aoi_trans_Visualization, this, &Vistrum::sltExport_aoi_trans_vis_Image);
    m_diagram->setAttribute(Qt::WA_QuitOnClose, false); // the program ends with its main window
    connect(&m_ui->control->areasWidget(), &VisualizationAOIWidget::sigGraphicsParametersChanged, this,
            &Vistrum::followAreas);
}

/// After the areas were drawn on demand: the diagram is shown, and what is missing is told. A move of the timeline must
/// do neither.
void Vistrum::followAreas()
{
    constexpr int diagramMode = 2;
    const int number = m_ui->control->areasWidget().parameters().drawMode;
    const AoiMode *mode = aoiMode(number);
    if (number == diagramMode)
        showDiagram();
    else if (const auto reason =
                 mode && mode->options.testFlag(AoiOption::TimeWindow) ? emptyAoiChart(m_model) : std::nullopt)
        messages::information(QString(), *reason);
}

ChordData Vistrum::diagram() const
{
    const auto type = static_cast<TransitionType>(m_ui->control->areasWidget().parameters().transitionType);
    const DrawingContext context = drawingContext();
    return chordData(m_model, context.eyeMode, type, context.frame);
}

void Vistrum::showDiagram()
{
    std::optional<QString> problem = emptyDiagram(m_model);
    const ChordData chords = problem ? ChordData() : diagram();
    const QString folder = chordFolder();
    if (!problem)
        problem = writeChordFiles(chords, folder);
    if (problem) {
        messages::information(QString(), *problem);
        return;
    }
    const QUrl page = QUrl::fromLocalFile(folder + QStringLiteral("/index.htm"));
    m_diagram->showDiagram(chords, page);
    m_openPage(page);
}

void Vistrum::sltExport_aoi_trans_vis_Image(const QString &path)
{
    std::optional<QString> problem = emptyDiagram(m_model);
    if (!problem)
        problem = exportDiagram(diagram(), path);
    tellOutcome(QStringLiteral("Transition diagramm export"), // sic
                QStringLiteral("Displayed transition diagramm exported to: ") + path, problem);
}
