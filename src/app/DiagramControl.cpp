// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DiagramControl.h"

#include "app/controlWidget.h"
#include "app/WindowFeedback.h"
#include "base/Messages.h"
#include "diagram/ChordFiles.h"
#include "diagram/panel/add_diagram.h"
#include "diagram/scene/DiagramExport.h"
#include "export/panel/ExportWidget.h"
#include "export/panel/VisualizationExportBox.h"
#include "visualization/charts/AoiCharts.h"
#include "visualization/modes/AoiModes.h"
#include "visualization/panel/VisualizationAOIWidget.h"

#include <QDesktopServices>
#include <QUrl>

DiagramControl::DiagramControl(std::function<DrawingContext()> context, controlWidget &control)
    : m_context(std::move(context))
    , m_openPage([](const QUrl &page) { QDesktopServices::openUrl(page); })
    , m_window(std::make_unique<add_diagram>())
{
    m_window->setAttribute(Qt::WA_QuitOnClose, false); // the program ends with its main window
    connect(&control.areasWidget(), &VisualizationAOIWidget::sigGraphicsParametersChanged, this,
            &DiagramControl::followAreas);
    connect(&control.exportWidget(), &ExportWidget::sigExport_aoi_trans_Visualization, this,
            &DiagramControl::sltExport_aoi_trans_vis_Image);
    control.exportWidget().visualizationBox().setDiagramCheck([this] { return emptyDiagram(m_context().model); });
}

DiagramControl::~DiagramControl() = default;

void DiagramControl::hide()
{
    m_window->hide();
}

void DiagramControl::followAreas()
{
    constexpr int diagramMode = 2;
    const DrawingContext context = m_context();
    const AoiMode *mode = aoiMode(context.areas.drawMode);
    if (context.areas.drawMode == diagramMode)
        show();
    else if (const auto reason = mode && mode->options.testFlag(AoiModeOption::TimeWindow)
                                     ? emptyAoiChart(context.model)
                                     : std::nullopt)
        messages::information(QString(), *reason);
}

ChordData DiagramControl::diagram() const
{
    const DrawingContext context = m_context();
    return chordData(context.model, context.eyeMode, static_cast<TransitionType>(context.areas.transitionType),
                     context.frame);
}

void DiagramControl::show()
{
    if (const auto reason = emptyDiagram(m_context().model)) {
        messages::information(QString(), *reason);
        return;
    }
    const ChordData chords = diagram();
    const QString folder = chordFolder();
    if (const auto problem = writeChordFiles(chords, folder)) {
        messages::show({messages::Severity::Information, QString(), problem->text, problem->reason});
        return;
    }
    const QUrl page = QUrl::fromLocalFile(folder + QStringLiteral("/index.htm"));
    m_window->showDiagram(chords, page);
    m_openPage(page);
}

void DiagramControl::sltExport_aoi_trans_vis_Image(const QString &path)
{
    std::optional<QString> problem = emptyDiagram(m_context().model);
    if (!problem)
        problem = exportDiagram(diagram(), path);
    tellOutcome(QStringLiteral("Transition diagramm export"), // sic
                QStringLiteral("Displayed transition diagramm exported to: ") + path, problem);
}
