// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/ExportWidget.h"

#include "base/SideBySide.h"
#include "detection/StoredGeometry.h"
#include "export/bids/BidsExport.h"
#include "export/panel/ExportedTable.h"
#include "export/panel/ExportForm.h"
#include "export/TidyExport.h"
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"
#include "ui_ExportWidget.h"

#include <QFileDialog>

#include <algorithm>

namespace {

void storeFolder(const QString &folder)
{
    writeStored(keys::dataExportFolder, folder);
}

ExportResult writeTidy(const DataModel &model, const ExportTarget &target)
{
    return exportTidy(model, target, {.pixelPerDistance = storedPixelPerDistance()});
}

ExportResult writeTidySamples(const DataModel &model, const ExportTarget &target)
{
    return exportTidySamples(model, target, {.pixelPerDistance = storedPixelPerDistance()});
}

ExportResult writeBids(const DataModel &model, const ExportTarget &target)
{
    return exportBids(model, target, {.geometry = storedGeometry(), .threads = coreCount()});
}

using Text = QLatin1StringView;

/// In the order of the form, which is that of writing.
constexpr ExportedTable<Ui::ExportWidget> tableKinds[] = {
    {&Ui::ExportWidget::fixationCheckBox, {Text("fixations"), Text("fixations")}, newTableCommand<exportFixations>},
    {&Ui::ExportWidget::clusterCheckBox, {Text("clusters"), Text("clusters")}, newTableCommand<exportClusters>},
    {&Ui::ExportWidget::eventCheckBox, {Text("events"), Text("events")}, newTableCommand<exportEvents>},
    {&Ui::ExportWidget::cumulativeClusterCheckBox,
     {Text("cumulative clusters"), Text("cumulative-clusters")},
     newTableCommand<exportCumulativeClusters>},
    {&Ui::ExportWidget::tidyCheckBox, {Text("tidy tables"), Text("tidy")}, newTableCommand<writeTidy>},
    {&Ui::ExportWidget::tidySamplesCheckBox,
     {Text("tidy samples"), Text("tidy-samples")},
     newTableCommand<writeTidySamples>},
    {&Ui::ExportWidget::bidsCheckBox, {Text("BIDS"), Text("bids")}, newTableCommand<writeBids>},
};

/// A kind of chart and the signal that asks for it.
struct ChartSignal {
    Text kind;
    void (ExportWidget::*wanted)(const QString &);
};

constexpr ChartSignal chartSignals[] = {
    {Text("saccades"), &ExportWidget::sigExportSaccadenHistogram},
    {Text("saccades-by-eye"), &ExportWidget::sigExportSaccadenHistogramsep},
    {Text("saccades-and-fixations"), &ExportWidget::sigExportSaccadenFixationenHistogramsep},
    {Text("fixations"), &ExportWidget::sigExportFixationHistogram},
    {Text("fixations-by-eye"), &ExportWidget::sigExportFixationHistogramsep},
    {Text("aoi-transitions"), &ExportWidget::sigExportTimeTransHistogram},
    {Text("aoi-fixations"), &ExportWidget::sigExportAOIFixationHistogram},
    {Text("aoi-transitions-by-pair"), &ExportWidget::sigExportAOITransitionHistogram},
    {Text("aoi-fixation-shares"), &ExportWidget::sigExportAOIFixationShareHistogram},
};

} // namespace

ExportWidget::ExportWidget(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::ExportWidget>())
{
    m_ui->setupUi(this);
    m_ui->dataFolderLineEdit->setText(readStored(keys::dataExportFolder));
    QLineEdit *folder = m_ui->dataFolderLineEdit; // still there when the last focus goes, in contrast to the form
    connect(folder, &QLineEdit::editingFinished, folder, [folder] { storeFolder(folder->text()); });
    connect(m_ui->dataBrowseButton, &QAbstractButton::clicked, this, &ExportWidget::sltBrowseDataExportFolder);
    connect(m_ui->dataExportButton, &QAbstractButton::clicked, this, &ExportWidget::sltExportData);
    for (const ExportedTable<Ui::ExportWidget> &kind : tableKinds)
        connect(m_ui.get()->*kind.box, &QCheckBox::toggled, this, [this, kind] { enable(m_ui.get()->*kind.box); });
    connect(m_ui->statisticsBox, &StatisticsExportBox::transitionsWanted, this, &ExportWidget::sigExport_aoi_trans_csv);
    connect(m_ui->statisticsBox, &StatisticsExportBox::angleStarWanted, this, &ExportWidget::sigExport_anglestar);
    connect(m_ui->visualizationBox, &VisualizationExportBox::pictureWanted, this,
            &ExportWidget::sigExportVisualization);
    connect(m_ui->visualizationBox, &VisualizationExportBox::videoWanted, this, &ExportWidget::sigExport_video);
    connect(m_ui->visualizationBox, &VisualizationExportBox::diagramWanted, this,
            &ExportWidget::sigExport_aoi_trans_Visualization);
    connect(m_ui->visualizationBox, &VisualizationExportBox::chartWanted, this, &ExportWidget::askForChart);
}

ExportWidget::~ExportWidget() = default;

void ExportWidget::setModel(DataModel *model)
{
    m_model = model;
    m_ui->statisticsBox->setModel(model);
    m_ui->visualizationBox->setModel(model);
}

PictureSettings ExportWidget::pictureSettings() const
{
    return m_ui->visualizationBox->pictureSettings();
}

int ExportWidget::videoStepMs() const
{
    return m_ui->visualizationBox->videoStepMs();
}

VisualizationExportBox &ExportWidget::visualizationBox()
{
    return *m_ui->visualizationBox;
}

void ExportWidget::sltExportData()
{
    const ExportTarget target{m_ui->dataFolderLineEdit->text(), m_ui->dataPrefixLineEdit->text(),
                              eyeSelection(m_ui->dataEyeComboBox->currentText())};
    if (target.folder.isEmpty()) {
        askForFolder(this);
        return;
    }
    pushChosen(*m_ui, tableKinds, m_model, target);
}

void ExportWidget::sltBrowseDataExportFolder()
{
    const QString stored = readStored(keys::dataExportFolder);
    const QString folder = QFileDialog::getExistingDirectory(this, QStringLiteral("Select export folder"), stored);
    if (folder.isEmpty())
        return;
    m_ui->dataFolderLineEdit->setText(folder);
    storeFolder(folder);
}

void ExportWidget::sltEnableFixationExport()
{
    enable(m_ui->fixationCheckBox);
    enable(m_ui->tidyCheckBox);
    sltEnableSampleExport();
}

void ExportWidget::sltEnableFixationClusterExport()
{
    enable(m_ui->clusterCheckBox);
}

void ExportWidget::sltEnableEventExport()
{
    enable(m_ui->eventCheckBox);
}

void ExportWidget::sltEnableCumulativeClusterExport()
{
    enable(m_ui->cumulativeClusterCheckBox);
}

void ExportWidget::sltEnableSampleExport()
{
    enable(m_ui->tidySamplesCheckBox);
    enable(m_ui->bidsCheckBox);
}

void ExportWidget::sltExportStatistics()
{
    m_ui->statisticsBox->exportChosen();
}

void ExportWidget::sltBrowseStatisticExportFolder()
{
    m_ui->statisticsBox->browseFolder();
}

TransitionChoice ExportWidget::transitionChoice() const
{
    return m_ui->statisticsBox->transitionChoice();
}

using Statistics = StatisticsExportBox::Kind;

void ExportWidget::sltEnableGeneralStatisticsExport()
{
    m_ui->statisticsBox->enable(Statistics::General);
}

void ExportWidget::sltEnableAOIstatsExport()
{
    m_ui->statisticsBox->enable(Statistics::Areas);
}

void ExportWidget::sltEnable_AOI_trans_matrix_export()
{
    m_ui->statisticsBox->enable(Statistics::AreaTransitions);
}

void ExportWidget::sltEnableClusterstatsExport()
{
    m_ui->statisticsBox->enable(Statistics::Clusters);
}

void ExportWidget::sltEnableCUMMClusterstatsExport()
{
    m_ui->statisticsBox->enable(Statistics::CumulativeClusters);
}

void ExportWidget::sltEnableAnglestarExport()
{
    m_ui->statisticsBox->enable(Statistics::AngleStar);
}

void ExportWidget::sltEnableQualityExport()
{
    m_ui->statisticsBox->enable(Statistics::Recordings);
}

void ExportWidget::sltExportAppendInfo(int state)
{
    writeStored(keys::exportAppendInfo, state);
}

/// The button follows the check boxes: on when at least one of them is.
void ExportWidget::enable(QCheckBox *kind)
{
    kind->setEnabled(true);
    m_ui->dataExportButton->setEnabled(
        std::any_of(std::begin(tableKinds), std::end(tableKinds),
                    [this](const auto &each) { return (m_ui.get()->*each.box)->isChecked(); }));
}

// ---- what is drawn

void ExportWidget::askForChart(const QString &kind, const QString &path)
{
    for (const ChartSignal &each : chartSignals) {
        if (kind == each.kind)
            Q_EMIT(this->*each.wanted)(path);
    }
}

void ExportWidget::sltExportVisualization()
{
    m_ui->visualizationBox->exportPicture();
}

void ExportWidget::sltExportVideo()
{
    m_ui->visualizationBox->exportVideo();
}

void ExportWidget::sltExportAOITransitionGraph()
{
    m_ui->visualizationBox->exportDiagram();
}

void ExportWidget::sltExportAOIImages()
{
    m_ui->visualizationBox->exportAoiImages();
}

void ExportWidget::sltExportSaccadenHistogram()
{
    m_ui->visualizationBox->exportChart(QStringLiteral("saccades"));
}

void ExportWidget::sltExportSaccadenHistogramsep()
{
    m_ui->visualizationBox->exportChart(QStringLiteral("saccades-by-eye"));
}

void ExportWidget::sltExportSaccadenFixationHistogram()
{
    m_ui->visualizationBox->exportChart(QStringLiteral("saccades-and-fixations"));
}

void ExportWidget::sltExportFixationHistogram()
{
    m_ui->visualizationBox->exportChart(QStringLiteral("fixations"));
}

void ExportWidget::sltExportFixationHistogramsep()
{
    m_ui->visualizationBox->exportChart(QStringLiteral("fixations-by-eye"));
}

void ExportWidget::sltExportTimeTransHistogram()
{
    m_ui->visualizationBox->exportChart(QStringLiteral("aoi-transitions"));
}

void ExportWidget::sltExportAOIFixationHistogram()
{
    m_ui->visualizationBox->exportChart(QStringLiteral("aoi-fixations"));
}

void ExportWidget::sltExportAOITransitionHistogram()
{
    m_ui->visualizationBox->exportChart(QStringLiteral("aoi-transitions-by-pair"));
}
