// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/ExportWidget.h"

#include "base/SideBySide.h"
#include "detection/PixelSize.h"
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
    {&Ui::ExportWidget::fixationCheckBox, Text("fixations"), newTableCommand<exportFixations>},
    {&Ui::ExportWidget::clusterCheckBox, Text("clusters"), newTableCommand<exportClusters>},
    {&Ui::ExportWidget::eventCheckBox, Text("events"), newTableCommand<exportEvents>},
    {&Ui::ExportWidget::cumulativeClusterCheckBox, Text("cumulative clusters"),
     newTableCommand<exportCumulativeClusters>},
    {&Ui::ExportWidget::tidyCheckBox, Text("tidy tables"), newTableCommand<writeTidy>},
    {&Ui::ExportWidget::tidySamplesCheckBox, Text("tidy samples"), newTableCommand<writeTidySamples>},
    {&Ui::ExportWidget::bidsCheckBox, Text("BIDS"), newTableCommand<writeBids>},
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

ExportWidget::ExportWidget(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::ExportWidget>())
{
    ui->setupUi(this);
    ui->dataFolderLineEdit->setText(readStored(keys::dataExportFolder));
    QLineEdit *folder = ui->dataFolderLineEdit; // still there when the last focus goes, in contrast to the form
    connect(folder, &QLineEdit::editingFinished, folder, [folder] { storeFolder(folder->text()); });
    connect(ui->dataBrowseButton, &QAbstractButton::clicked, this, &ExportWidget::sltBrowseDataExportFolder);
    connect(ui->dataExportButton, &QAbstractButton::clicked, this, &ExportWidget::sltExportData);
    for (const ExportedTable<Ui::ExportWidget> &kind : tableKinds)
        connect(ui.get()->*kind.box, &QCheckBox::toggled, this, [this, kind] { enable(ui.get()->*kind.box); });
    connect(ui->statisticsBox, &StatisticsExportBox::transitionsWanted, this, &ExportWidget::sigExport_aoi_trans_csv);
    connect(ui->statisticsBox, &StatisticsExportBox::angleStarWanted, this, &ExportWidget::sigExport_anglestar);
    connect(ui->visualizationBox, &VisualizationExportBox::pictureWanted, this, &ExportWidget::sigExportVisualization);
    connect(ui->visualizationBox, &VisualizationExportBox::videoWanted, this, &ExportWidget::sigExport_video);
    connect(ui->visualizationBox, &VisualizationExportBox::diagramWanted, this,
            &ExportWidget::sigExport_aoi_trans_Visualization);
    connect(ui->visualizationBox, &VisualizationExportBox::chartWanted, this, &ExportWidget::askForChart);
}

ExportWidget::~ExportWidget() = default;

void ExportWidget::setModel(DataModel *model)
{
    m_model = model;
    ui->statisticsBox->setModel(model);
    ui->visualizationBox->setModel(model);
}

PictureSettings ExportWidget::pictureSettings() const
{
    return ui->visualizationBox->pictureSettings();
}

int ExportWidget::videoStepMs() const
{
    return ui->visualizationBox->videoStepMs();
}

VisualizationExportBox &ExportWidget::visualizationBox()
{
    return *ui->visualizationBox;
}

void ExportWidget::sltExportData()
{
    const ExportTarget target{ui->dataFolderLineEdit->text(), ui->dataPrefixLineEdit->text(),
                              eyeSelection(ui->dataEyeComboBox->currentText())};
    if (target.folder.isEmpty()) {
        askForFolder(this);
        return;
    }
    pushChosen(*ui, tableKinds, m_model, target);
}

void ExportWidget::sltBrowseDataExportFolder()
{
    const QString stored = readStored(keys::dataExportFolder);
    const QString folder = QFileDialog::getExistingDirectory(this, QStringLiteral("Select export folder"), stored);
    if (folder.isEmpty())
        return;
    ui->dataFolderLineEdit->setText(folder);
    storeFolder(folder);
}

void ExportWidget::sltEnableFixationExport()
{
    enable(ui->fixationCheckBox);
    enable(ui->tidyCheckBox);
    sltEnableSampleExport();
}

void ExportWidget::sltEnableFixationClusterExport()
{
    enable(ui->clusterCheckBox);
}

void ExportWidget::sltEnableEventExport()
{
    enable(ui->eventCheckBox);
}

void ExportWidget::sltEnableCumulativeClusterExport()
{
    enable(ui->cumulativeClusterCheckBox);
}

void ExportWidget::sltEnableSampleExport()
{
    enable(ui->tidySamplesCheckBox);
    enable(ui->bidsCheckBox);
}

void ExportWidget::sltExportStatistics()
{
    ui->statisticsBox->exportChosen();
}

void ExportWidget::sltBrowseStatisticExportFolder()
{
    ui->statisticsBox->browseFolder();
}

TransitionChoice ExportWidget::transitionChoice() const
{
    return ui->statisticsBox->transitionChoice();
}

using Statistics = StatisticsExportBox::Kind;

void ExportWidget::sltEnableGeneralStatisticsExport()
{
    ui->statisticsBox->enable(Statistics::General);
}

void ExportWidget::sltEnableAOIstatsExport()
{
    ui->statisticsBox->enable(Statistics::Areas);
}

void ExportWidget::sltEnable_AOI_trans_matrix_export()
{
    ui->statisticsBox->enable(Statistics::AreaTransitions);
}

void ExportWidget::sltEnableClusterstatsExport()
{
    ui->statisticsBox->enable(Statistics::Clusters);
}

void ExportWidget::sltEnableCUMMClusterstatsExport()
{
    ui->statisticsBox->enable(Statistics::CumulativeClusters);
}

void ExportWidget::sltEnableAnglestarExport()
{
    ui->statisticsBox->enable(Statistics::AngleStar);
}

void ExportWidget::sltEnableQualityExport()
{
    ui->statisticsBox->enable(Statistics::Recordings);
}

void ExportWidget::sltExportAppendInfo(int state)
{
    writeStored(keys::exportAppendInfo, state);
}

/// The button follows the check boxes: on when at least one of them is.
void ExportWidget::enable(QCheckBox *kind)
{
    kind->setEnabled(true);
    ui->dataExportButton->setEnabled(
        std::any_of(std::begin(tableKinds), std::end(tableKinds),
                    [this](const auto &each) { return (ui.get()->*each.box)->isChecked(); }));
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
    ui->visualizationBox->exportPicture();
}

void ExportWidget::sltExportVideo()
{
    ui->visualizationBox->exportVideo();
}

void ExportWidget::sltExportAOITransitionGraph()
{
    ui->visualizationBox->exportDiagram();
}

void ExportWidget::sltExportAOIImages()
{
    ui->visualizationBox->exportAoiImages();
}

void ExportWidget::sltExportSaccadenHistogram()
{
    ui->visualizationBox->exportChart(QStringLiteral("saccades"));
}

void ExportWidget::sltExportSaccadenHistogramsep()
{
    ui->visualizationBox->exportChart(QStringLiteral("saccades-by-eye"));
}

void ExportWidget::sltExportSaccadenFixationHistogram()
{
    ui->visualizationBox->exportChart(QStringLiteral("saccades-and-fixations"));
}

void ExportWidget::sltExportFixationHistogram()
{
    ui->visualizationBox->exportChart(QStringLiteral("fixations"));
}

void ExportWidget::sltExportFixationHistogramsep()
{
    ui->visualizationBox->exportChart(QStringLiteral("fixations-by-eye"));
}

void ExportWidget::sltExportTimeTransHistogram()
{
    ui->visualizationBox->exportChart(QStringLiteral("aoi-transitions"));
}

void ExportWidget::sltExportAOIFixationHistogram()
{
    ui->visualizationBox->exportChart(QStringLiteral("aoi-fixations"));
}

void ExportWidget::sltExportAOITransitionHistogram()
{
    ui->visualizationBox->exportChart(QStringLiteral("aoi-transitions-by-pair"));
}
