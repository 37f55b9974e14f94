// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowExports.h"

#include "aoi/panel/add_heatmap_aoi.h"
#include "aoi/panel/CancellableProgress.h"
#include "app/controlWidget.h"
#include "app/PictureControl.h"
#include "app/SessionControl.h"
#include "app/WindowFeedback.h"
#include "base/Messages.h"
#include "clustering/panel/ClusterControl.h"
#include "clustering/panel/SaccadeClusterControl.h"
#include "detection/panel/FixationControl.h"
#include "export/AngleStarExport.h"
#include "export/panel/ExportWidget.h"
#include "export/scene/ChartExport.h"
#include "export/scene/PictureExport.h"
#include "export/scene/VideoExport.h"
#include "export/TransitionTables.h"
#include "visualization/charts/ChartKinds.h"
#include "visualization/panel/VisualizationSaccadeClustersWidget.h"

WindowExports::WindowExports(const Sources &sources) : m_sources(sources)
{
    const ExportWidget *panel = &sources.control.exportWidget();
    using Panel = ExportWidget;
    using Self = WindowExports;
    connect(panel, &Panel::sigExport_aoi_trans_csv, this, &Self::sltexport_aoi_trans_csv);
    connect(panel, &Panel::sigExport_anglestar, this, &Self::sltexport_anglestar);
    connect(panel, &Panel::sigExport_video, this, &Self::sltexport_video);
    connect(panel, &Panel::sigExportVisualization, this, &Self::sltExportImage);
    connect(panel, &Panel::sigExportSaccadenHistogram, this, &Self::sltExportSaccadenHistogram);
    connect(panel, &Panel::sigExportSaccadenHistogramsep, this, &Self::sltExportSaccadenHistogramsep);
    connect(panel, &Panel::sigExportSaccadenFixationenHistogramsep, this, &Self::sltExportSaccadenFixationHistogramsep);
    connect(panel, &Panel::sigExportFixationHistogram, this, &Self::sltExportFixationHistogram);
    connect(panel, &Panel::sigExportFixationHistogramsep, this, &Self::sltExportFixationHistogramsep);
    connect(panel, &Panel::sigExportTimeTransHistogram, this, &Self::sltExportAOITimeTransHistogram);
    connect(panel, &Panel::sigExportAOIFixationHistogram, this, &Self::sltExportAOIFixationHistogram);
    connect(panel, &Panel::sigExportAOITransitionHistogram, this, &Self::sltExportAOITransitionHistogram);
    connect(panel, &Panel::sigExportAOIFixationShareHistogram, this, &Self::sltExportAOIFixationShareHistogram);
}

void WindowExports::sltexport_aoi_trans_csv(const QString &stem)
{
    const TransitionChoice choice = m_sources.control.exportWidget().transitionChoice();
    const DrawingContext context = m_sources.picture.context();
    exportTransitions(context.model, stem, context.eyeMode, choice, &m_sources.log);
    m_sources.session.noteTransitions(stem, choice);
}

void WindowExports::sltexport_anglestar(const QString &stem)
{
    const DrawingContext context = m_sources.picture.context();
    const VisualizationParameters &saccades = context.of(DataKind::Saccades);
    exportAngleStar(context.model, stem, {saccades.numberOfHistogramBins, saccades.angleOffset});
    m_sources.session.noteTable(QStringLiteral("anglestar"), stem);
}

ReportRecords WindowExports::reportRecords() const
{
    controlWidget &control = m_sources.control;
    const VisualizationSaccadeClustersWidget &saccades = control.saccadeClustersWidget();
    const bool hasAreas = !m_sources.picture.context().model.aoiList().isEmpty();
    return {.fixations = control.fixationControl().settings(),
            .clusters = control.clusterControl().parameters(),
            .saccadeClusters = control.saccadeClusterControl().saccadeClusterModel()->parameters(),
            .saccadeClusterMode = saccades.mode(),
            .saccadeClusterStyle = saccades.style(),
            .regions = hasAreas ? m_sources.regions.exported() : std::nullopt};
}

void WindowExports::sltExportImage(const QString &path)
{
    PictureControl &picture = m_sources.picture;
    const ReportRecords records = reportRecords();
    const DrawingContext context = picture.context();
    const DrawnPicture drawn{
        picture.scene(), picture.scene().itemsBoundingRect(), picture.backgroundArea(), picture.figures(), context,
        records};
    if (const auto problem = exportPicture(drawn, m_sources.control.exportWidget().pictureSettings(), path))
        messages::warning(QStringLiteral("Save Visualization"), *problem);
    else
        Q_EMIT told({QStringLiteral("Visualization saved to: ") + path, {}, {}});
}

void WindowExports::sltexport_video(const QString &path)
{
    PictureControl &picture = m_sources.picture;
    const VideoContent content{picture.context(), picture.layers(), picture.scene().itemsBoundingRect()};
    VideoOutcome outcome = VideoOutcome::Stopped;
    {
        const CancellableProgress progress(&m_sources.window);
        const std::stop_token stop = progress.token();
        outcome = exportVideo(content, m_sources.control.exportWidget().videoStepMs(), path, stop);
    }
    if (outcome == VideoOutcome::Written)
        Q_EMIT told({QStringLiteral("Video saved to: ") + path, {}, {}});
    const QString failure = videoFailure(outcome, path);
    const auto severity = failure.isEmpty() ? messages::Severity::Information : messages::Severity::Warning;
    messages::show({severity, QStringLiteral("Save Video"), videoText(outcome), failure});
}

void WindowExports::exportChart(const QString &kind, const QString &path)
{
    const ChartKind *chart = chartKind(kind);
    tellOutcome(chart->title + QStringLiteral(" export"), QStringLiteral("%1 exported to: %2").arg(chart->title, path),
                ::exportChart(*chart, m_sources.picture.context(), path));
}

void WindowExports::sltExportSaccadenHistogram(const QString &path)
{
    exportChart(QStringLiteral("saccades"), path);
}

void WindowExports::sltExportSaccadenHistogramsep(const QString &path)
{
    exportChart(QStringLiteral("saccades-by-eye"), path);
}

void WindowExports::sltExportSaccadenFixationHistogramsep(const QString &path)
{
    exportChart(QStringLiteral("saccades-and-fixations"), path);
}

void WindowExports::sltExportFixationHistogram(const QString &path)
{
    exportChart(QStringLiteral("fixations"), path);
}

void WindowExports::sltExportFixationHistogramsep(const QString &path)
{
    exportChart(QStringLiteral("fixations-by-eye"), path);
}

void WindowExports::sltExportAOITimeTransHistogram(const QString &path)
{
    exportChart(QStringLiteral("aoi-transitions"), path);
}

void WindowExports::sltExportAOIFixationHistogram(const QString &path)
{
    exportChart(QStringLiteral("aoi-fixations"), path);
}

void WindowExports::sltExportAOITransitionHistogram(const QString &path)
{
    exportChart(QStringLiteral("aoi-transitions-by-pair"), path);
}

void WindowExports::sltExportAOIFixationShareHistogram(const QString &path)
{
    exportChart(QStringLiteral("aoi-fixation-shares"), path);
}
