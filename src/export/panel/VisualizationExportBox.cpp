// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/VisualizationExportBox.h"

#include "base/Messages.h"
#include "commands/panel/SaveDialog.h"
#include "export/AoiImages.h"
#include "model/DataModel.h"
#include "ui_VisualizationExportBox.h"
#include "visualization/charts/ChartKinds.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

VisualizationExportBox::VisualizationExportBox(QWidget *parent)
    : QGroupBox(parent)
    , m_ui(std::make_unique<Ui::VisualizationExportBox>())
    , m_chooseFile([this](const QString &title, const QString &folder, const QString &filter) {
        return chooseSaveFile(this, title, folder, filter);
    })
    , m_chooseFolder([this](const QString &title, const QString &folder) {
        return QFileDialog::getExistingDirectory(this, title, folder,
                                                 QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    })
{
    m_ui->setupUi(this);
    makeControls();
}

VisualizationExportBox::~VisualizationExportBox() = default;

void VisualizationExportBox::makeControls()
{
    for (const ChartKind &kind : chartKinds())
        m_ui->chartComboBox->addItem(kind.title, QString(kind.word));
    connect(m_ui->visualizationExportButton, &QAbstractButton::clicked, this, &VisualizationExportBox::exportPicture);
    connect(m_ui->aoiImageExportButton, &QAbstractButton::clicked, this, &VisualizationExportBox::exportAoiImages);
    connect(m_ui->videoExportButton, &QAbstractButton::clicked, this, &VisualizationExportBox::exportVideo);
    connect(m_ui->diagramExportButton, &QAbstractButton::clicked, this, &VisualizationExportBox::exportDiagram);
    connect(m_ui->chartExportButton, &QAbstractButton::clicked, this,
            [this] { exportChart(m_ui->chartComboBox->currentData().toString()); });
}

PictureSettings VisualizationExportBox::pictureSettings() const
{
    return {.appended = {m_ui->appendColormapCheckBox->isChecked(), m_ui->appendParametersCheckBox->isChecked()},
            .area = m_ui->cropCheckBox->isChecked() ? PictureArea::Stimulus : PictureArea::Everything,
            .scale = static_cast<double>(m_ui->scaleSpinBox->value()),
            .ground = m_ui->whiteGroundCheckBox->isChecked() ? Qt::white : Qt::transparent,
            .legend = m_ui->legendCheckBox->isChecked(),
            .labelFixations = m_ui->numbersCheckBox->isChecked()};
}

/// The folder of the answer is where the next question begins.
QString VisualizationExportBox::askForFile(const QString &title, const StoredKey<QString> &folder, const char *filter)
{
    QString path = m_chooseFile(title, readStored(folder), QString::fromLatin1(filter));
    if (!path.isEmpty())
        writeStored(folder, QFileInfo(path).path());
    return path;
}

void VisualizationExportBox::exportPicture()
{
    const QString path = askForFile(QStringLiteral("Save Visualization"), keys::visualizationExportFolder,
                                    "PNG (*.png);;Vector Graphics (*.svg);; TIFF(*.tiff);; JPEG(*.jpg)");
    if (!path.isEmpty())
        Q_EMIT pictureWanted(path);
}

int VisualizationExportBox::videoStepMs() const
{
    return m_ui->videoTimespanSpinBox->value();
}

void VisualizationExportBox::exportVideo()
{
    const QString path =
        askForFile(QStringLiteral("Save Video"), keys::videoExportFolder, "AVI (*.avi);;MP4 (*.mp4);;Matroska (*.mkv)");
    if (!path.isEmpty())
        Q_EMIT videoWanted(path);
}

void VisualizationExportBox::exportDiagram()
{
    if (const auto problem = m_diagramProblem()) {
        messages::warning(QStringLiteral("Transition diagramm export"), *problem); // sic
        return;
    }
    const QString path = askForFile(QStringLiteral("Save Visualization"), keys::aoiTransitionExportFolder,
                                    "PNG (*.png);;Vector Graphics (*.svg);; TIFF(*.tiff);; JPEG(*.jpg);;Page (*.html)");
    if (!path.isEmpty())
        Q_EMIT diagramWanted(path);
}

void VisualizationExportBox::exportChart(const QString &kind)
{
    const QString path = askForFile(QStringLiteral("Save Visualization"), keys::visualizationExportFolder,
                                    "PNG (*.png);; JPEG(*.jpg);;Vector Graphics (*.svg);;Numbers (*.csv)");
    if (!path.isEmpty())
        Q_EMIT chartWanted(kind, path);
}

void VisualizationExportBox::exportAoiImages()
{
    const QString title = QStringLiteral("Save AOI Images");
    if (!m_model || m_model->aoiList().isEmpty()) {
        messages::warning(title, QStringLiteral("There is no area of interest."));
        return;
    }
    const QString folder = m_chooseFolder(title, readStored(keys::aoiImageExportFolder));
    if (folder.isEmpty())
        return;
    writeStored(keys::aoiImageExportFolder, folder);
    tellExported(QStringLiteral("AOI Images exported"), QStringLiteral("AOI Images exported to: ") + folder,
                 ::exportAoiImages(m_model->aoiList(), folder));
}
