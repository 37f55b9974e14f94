// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/scene/PictureSettings.h"
#include "settings/StoredKeys.h"

#include <QGroupBox>

#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class VisualizationExportBox;
}
class DataModel;

/// The part of the export panel that saves what is drawn: as a picture, as cuts of the areas of interest, as charts and
/// as a video. It asks where; the window, which has the scene, writes.
class VisualizationExportBox : public QGroupBox {
    Q_OBJECT
public:
    /// Asks for a file to write, or for a folder; empty where the user gives none.
    using FileChooser = std::function<QString(const QString &title, const QString &folder, const QString &filter)>;
    using Check = std::function<std::optional<QString>()>;
    using FolderChooser = std::function<QString(const QString &title, const QString &folder)>;

    explicit VisualizationExportBox(QWidget *parent = nullptr);
    ~VisualizationExportBox() override;

    /// @param model  with the areas; must outlive the box. Until one is set no area is written.
    void setModel(const DataModel *model) { m_model = model; }
    /// In place of the dialogs.
    void setFileChooser(const FileChooser &chooser) { m_chooseFile = chooser; }
    void setFolderChooser(const FolderChooser &chooser) { m_chooseFolder = chooser; }
    /// What keeps the transition diagram from being drawn; told before a file is asked for.
    void setDiagramCheck(const Check &check) { m_diagramProblem = check; }

    /// As the controls choose it.
    PictureSettings pictureSettings() const;
    /// Time that each image of a video shows.
    int videoStepMs() const;

Q_SIGNALS:
    void pictureWanted(const QString &path);
    void videoWanted(const QString &path);
    void diagramWanted(const QString &path);
    /// @param kind  word of the kind of chart.
    void chartWanted(const QString &kind, const QString &path);

public Q_SLOTS:
    void exportPicture();
    void exportAoiImages();
    void exportVideo();
    void exportDiagram();
    void exportChart(const QString &kind);

private:
    void makeControls();
    QString askForFile(const QString &title, const StoredKey<QString> &folder, const char *filter);

    std::unique_ptr<Ui::VisualizationExportBox> m_ui;
    const DataModel *m_model = nullptr;
    FileChooser m_chooseFile;
    FolderChooser m_chooseFolder;
    Check m_diagramProblem = [] { return std::nullopt; };
};
