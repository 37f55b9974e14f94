#include "export/panel/ExportWidget.h"

#include "commands/CommandStack.h"
#include "export/panel/ExportCommands.h"
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"
#include "ui_ExportWidget.h"

#include <QFileDialog>
#include <QMessageBox>

#include <algorithm>

namespace {

constexpr std::pair<QLatin1StringView, EyeMode> eyeSelections[] = {
    {QLatin1StringView("for all eyes"), EyeMode::showAll}, {QLatin1StringView("dominant only"), EyeMode::showDominant},
    {QLatin1StringView("left only"), EyeMode::showLeft},   {QLatin1StringView("right only"), EyeMode::showRight},
    {QLatin1StringView("mean only"), EyeMode::showMean},
};

EyeMode eyeSelection(const QString &text)
{
    for (const auto &[name, mode] : eyeSelections) {
        if (text == name)
            return mode;
    }
    return EyeMode::showAll;
}

void storeFolder(const QString &folder)
{
    writeStored(keys::dataExportFolder, folder);
}

} // namespace

ExportWidget::ExportWidget(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::ExportWidget>())
{
    ui->setupUi(this);
    ui->dataFolderLineEdit->setText(readStored(keys::dataExportFolder));
    QLineEdit *folder = ui->dataFolderLineEdit; // still there when the last focus goes, in contrast to the form
    connect(folder, &QLineEdit::editingFinished, folder, [folder] { storeFolder(folder->text()); });
    connect(ui->dataBrowseButton, &QAbstractButton::clicked, this, &ExportWidget::sltBrowseDataExportFolder);
    connect(ui->dataExportButton, &QAbstractButton::clicked, this, &ExportWidget::sltExportData);
    connect(ui->fixationCheckBox, &QCheckBox::toggled, this, &ExportWidget::sltEnableFixationExport);
    connect(ui->clusterCheckBox, &QCheckBox::toggled, this, &ExportWidget::sltEnableFixationClusterExport);
    connect(ui->eventCheckBox, &QCheckBox::toggled, this, &ExportWidget::sltEnableEventExport);
    connect(ui->cumulativeClusterCheckBox, &QCheckBox::toggled, this, &ExportWidget::sltEnableCumulativeClusterExport);
}

ExportWidget::~ExportWidget() = default;

void ExportWidget::sltExportData()
{
    const ExportTarget target{ui->dataFolderLineEdit->text(), ui->dataPrefixLineEdit->text(),
                              eyeSelection(ui->dataEyeComboBox->currentText())};
    if (target.folder.isEmpty()) {
        QMessageBox box(this);
        box.setText(QStringLiteral("Please specifie a folder!!!")); // sic
        box.exec();
        return;
    }
    if (!m_model)
        return;
    if (ui->fixationCheckBox->isChecked())
        CommandStack::instance().push(new CommandExportFixations(*m_model, target));
    if (ui->clusterCheckBox->isChecked())
        CommandStack::instance().push(new CommandExportClusters(*m_model, target));
    if (ui->eventCheckBox->isChecked())
        CommandStack::instance().push(new CommandExportEvents(*m_model, target));
    if (ui->cumulativeClusterCheckBox->isChecked())
        CommandStack::instance().push(new CommandExportCumulativeClusters(*m_model, target));
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

void ExportWidget::sltExportAppendInfo(int state)
{
    writeStored(keys::exportAppendInfo, state);
}

/// The button follows the check boxes: on when at least one of them is.
void ExportWidget::enable(QCheckBox *kind)
{
    kind->setEnabled(true);
    const QCheckBox *kinds[] = {ui->fixationCheckBox, ui->clusterCheckBox, ui->eventCheckBox,
                                ui->cumulativeClusterCheckBox};
    ui->dataExportButton->setEnabled(
        std::any_of(std::begin(kinds), std::end(kinds), [](const QCheckBox *each) { return each->isChecked(); }));
}
