// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/StatisticsExportBox.h"

#include "detection/StoredGeometry.h"
#include "export/MeasureExport.h"
#include "export/panel/ExportedTable.h"
#include "export/panel/ExportForm.h"
#include "export/QualityExport.h"
#include "settings/StoredKeys.h"
#include "ui_StatisticsExportBox.h"

#include <QFileDialog>

#include <algorithm>

namespace {

using Form = Ui::StatisticsExportBox;

/// What can be chosen for writing, in the order of `StatisticsExportBox::Kind` and behind those what follows from them.
constexpr QCheckBox *Form::*choices[] = {&Form::generalCheckBox,
                                         &Form::aoiCheckBox,
                                         &Form::aoiTransitionCheckBox,
                                         &Form::clusterStatisticsCheckBox,
                                         &Form::cumulativeStatisticsCheckBox,
                                         &Form::angleStarCheckBox,
                                         &Form::qualityCheckBox,
                                         &Form::bothStatisticsCheckBox,
                                         &Form::aoiMeasuresCheckBox,
                                         &Form::scanpathMeasuresCheckBox,
                                         &Form::groupComparisonCheckBox};

ExportResult writeAoiMeasures(const DataModel &model, const ExportTarget &target)
{
    return exportAoiMeasures(model, target);
}

ExportResult writeScanpathMeasures(const DataModel &model, const ExportTarget &target)
{
    return exportScanpathMeasures(model, target, {.pixelPerDistance = storedPixelPerDistance()});
}

ExportResult writeGroupComparison(const DataModel &model, const ExportTarget &target)
{
    return exportGroupComparison(model, target, {.pixelPerDistance = storedPixelPerDistance()});
}

ExportResult writeQuality(const DataModel &model, const ExportTarget &target)
{
    return exportQuality(model, target, {.pixelPerDistance = storedPixelPerDistance()});
}

constexpr ExportedTable<Form> requiredTables[] = {
    {&Form::generalCheckBox,
     {QLatin1StringView("general statistics"), QLatin1StringView("general-statistics")},
     newTableCommand<writeGeneralStatistics>},
    {&Form::aoiCheckBox,
     {QLatin1StringView("AOI statistics"), QLatin1StringView("aoi-statistics")},
     newTableCommand<writeAoiStatistics>},
};

constexpr ExportedTable<Form> tidyTables[] = {
    {&Form::aoiMeasuresCheckBox,
     {QLatin1StringView("AOI measures"), QLatin1StringView("aoi-measures")},
     newTableCommand<writeAoiMeasures>},
    {&Form::scanpathMeasuresCheckBox,
     {QLatin1StringView("scanpath measures"), QLatin1StringView("scanpath-measures")},
     newTableCommand<writeScanpathMeasures>},
    {&Form::groupComparisonCheckBox,
     {QLatin1StringView("group comparison"), QLatin1StringView("group-comparison")},
     newTableCommand<writeGroupComparison>},
    {&Form::qualityCheckBox,
     {QLatin1StringView("data quality"), QLatin1StringView("quality")},
     newTableCommand<writeQuality>},
};

} // namespace

StatisticsExportBox::StatisticsExportBox(QWidget *parent) : QGroupBox(parent), m_ui(std::make_unique<Form>())
{
    m_ui->setupUi(this);
    m_ui->statisticsFolderLineEdit->setText(readStored(keys::statisticExportFolder));
    QLineEdit *folder = m_ui->statisticsFolderLineEdit; // still there when the last focus goes, in contrast to the form
    connect(folder, &QLineEdit::editingFinished, folder,
            [folder] { writeStored(keys::statisticExportFolder, folder->text()); });
    connect(m_ui->statisticsBrowseButton, &QAbstractButton::clicked, this, &StatisticsExportBox::browseFolder);
    connect(m_ui->statisticsExportButton, &QAbstractButton::clicked, this, &StatisticsExportBox::exportChosen);
    for (const auto choice : choices)
        connect(m_ui.get()->*choice, &QCheckBox::toggled, this, &StatisticsExportBox::updateButton);
}

StatisticsExportBox::~StatisticsExportBox() = default;

void StatisticsExportBox::exportChosen()
{
    const ExportTarget target{m_ui->statisticsFolderLineEdit->text(), m_ui->statisticsPrefixLineEdit->text(),
                              eyeSelection(m_ui->statisticsEyeComboBox->currentText())};
    if (target.folder.isEmpty()) {
        askForFolder(this);
        return;
    }
    pushChosen(*m_ui, requiredTables, m_model, target);
    const TransitionChoice choice = transitionChoice();
    if (choice.areas || !choice.flavours.isEmpty())
        Q_EMIT transitionsWanted(pathStem(target));
    if (m_ui->angleStarCheckBox->isChecked())
        Q_EMIT angleStarWanted(pathStem(target));
    pushChosen(*m_ui, tidyTables, m_model, target);
}

void StatisticsExportBox::browseFolder()
{
    const QString stored = readStored(keys::statisticExportFolder);
    const QString folder = QFileDialog::getExistingDirectory(this, QStringLiteral("Select export folder"), stored);
    if (folder.isEmpty())
        return;
    m_ui->statisticsFolderLineEdit->setText(folder);
    writeStored(keys::statisticExportFolder, folder);
}

TransitionChoice StatisticsExportBox::transitionChoice() const
{
    constexpr std::pair<QCheckBox * Form::*, TransitionFlavour> flavours[] = {
        {&Form::clusterStatisticsCheckBox, TransitionFlavour::Own},
        {&Form::cumulativeStatisticsCheckBox, TransitionFlavour::Pooled},
        {&Form::bothStatisticsCheckBox, TransitionFlavour::OwnAndPooled}};
    TransitionChoice choice;
    for (const auto &[box, flavour] : flavours) {
        if ((m_ui.get()->*box)->isChecked())
            choice.flavours << flavour;
    }
    choice.absolute = m_ui->absoluteCheckBox->isChecked();
    choice.relative = m_ui->relativeCheckBox->isChecked();
    choice.measures = m_ui->measuresCheckBox->isChecked();
    choice.areas = m_ui->aoiTransitionCheckBox->isChecked();
    return choice;
}

void StatisticsExportBox::enable(Kind kind)
{
    (m_ui.get()->*choices[static_cast<size_t>(kind)])->setEnabled(true);
    m_ui->bothStatisticsCheckBox->setEnabled(m_ui->clusterStatisticsCheckBox->isEnabled() &&
                                             m_ui->cumulativeStatisticsCheckBox->isEnabled());
    const bool hasClusters =
        m_ui->clusterStatisticsCheckBox->isEnabled() || m_ui->cumulativeStatisticsCheckBox->isEnabled();
    for (QCheckBox *values : {m_ui->absoluteCheckBox, m_ui->relativeCheckBox, m_ui->measuresCheckBox})
        values->setEnabled(hasClusters);
    if (kind == Kind::AngleStar) { // there are fixations
        m_ui->scanpathMeasuresCheckBox->setEnabled(true);
        m_ui->groupComparisonCheckBox->setEnabled(true);
    }
    if (kind == Kind::AreaTransitions)
        m_ui->aoiMeasuresCheckBox->setEnabled(true);
    updateButton();
}

/// On when at least one kind is.
void StatisticsExportBox::updateButton()
{
    m_ui->statisticsExportButton->setEnabled(std::any_of(
        std::begin(choices), std::end(choices), [this](auto choice) { return (m_ui.get()->*choice)->isChecked(); }));
}
