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

template <class Command>
QUndoCommand *newCommand(QLatin1StringView kind, DataModel &model, const ExportTarget &target)
{
    return new Command(kind, model, target);
}

/// One kind of table: its check box, its name in the undo view, its command.
struct TableKind {
    QCheckBox *Ui::ExportWidget::*box;
    QLatin1StringView caption;
    QUndoCommand *(*command)(QLatin1StringView, DataModel &, const ExportTarget &);
};

using Text = QLatin1StringView;

/// In the order of the form, which is that of writing.
constexpr TableKind tableKinds[] = {
    {&Ui::ExportWidget::fixationCheckBox, Text("fixations"), newCommand<CommandExportFixations>},
    {&Ui::ExportWidget::clusterCheckBox, Text("clusters"), newCommand<CommandExportClusters>},
    {&Ui::ExportWidget::eventCheckBox, Text("events"), newCommand<CommandExportEvents>},
    {&Ui::ExportWidget::cumulativeClusterCheckBox, Text("cumulative clusters"),
     newCommand<CommandExportCumulativeClusters>},
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
    for (const TableKind &kind : tableKinds)
        connect(ui.get()->*kind.box, &QCheckBox::toggled, this, [this, kind] { enable(ui.get()->*kind.box); });
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
    for (const TableKind &kind : tableKinds) {
        if ((ui.get()->*kind.box)->isChecked())
            CommandStack::instance().push(kind.command(kind.caption, *m_model, target));
    }
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
    ui->dataExportButton->setEnabled(
        std::any_of(std::begin(tableKinds), std::end(tableKinds),
                    [this](const TableKind &each) { return (ui.get()->*each.box)->isChecked(); }));
}
