// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/AreaOfInterest.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class AoiControl;
}
class AOI_PopUp;
class DataModel;
class IMainWindow;
class QListWidgetItem;
struct AoiPlace;

/// Lets the user choose a file, beginning in the folder; an empty name means that none was chosen.
using AoiFileChooser = std::function<QString(const QString &folder)>;

/// The page of the areas of interest: their list, in which a check mark enables them, and what is done with them.
class AoiControl : public QWidget {
    Q_OBJECT
public:
    explicit AoiControl(QWidget *parent = nullptr);
    /// Closes the windows in which areas are edited.
    ~AoiControl() override;

    /// Model and window are to outlive the panel. Without either of them areas cannot be worked with.
    void setModel(DataModel *model) { m_model = model; }
    void setMainWindow(IMainWindow *window) { m_window = window; }

    /// In place of the file dialogs.
    void setSaveFileChooser(const AoiFileChooser &chooser) { m_chooseSaveFile = chooser; }
    void setLoadFileChooser(const AoiFileChooser &chooser) { m_chooseLoadFile = chooser; }

    /// Inserts the areas one by one, each a step of its own, and draws once.
    void insertAll(const QList<AreaOfInterest> &aois);

Q_SIGNALS:
    /// The areas have changed: the picture is to be drawn anew.
    void sigGraphicsParametersChanged();
    /// The window is asked for the dialog of regions, and for a grid of areas.
    void sigAddAOIsHeatmap();
    void sigAddAOIsGrid();

public Q_SLOTS:
    void sltAddAOI();
    void sltAddAOI_heatmap() { Q_EMIT sigAddAOIsHeatmap(); }
    void sltAddAOI_grid() { Q_EMIT sigAddAOIsGrid(); }
    /// Areas from the cumulative clusters of the dominant eyes.
    void sltConvertClustersToAois();
    void sltInsertAOI(const AreaOfInterest &aoi, const QString &oldName = {});
    void sltEditAOI();
    void sltEditAOI(QListWidgetItem *item);
    void sltDeleteAOI();
    void sltDeleteAOI(QListWidgetItem *item);
    void sltSaveAOI();
    void sltLoadAOI();
    void sltAOIcheckstatechanged(QListWidgetItem *item);
    /// The selected areas go to the clipboard.
    void sltCopyAOIs();
    /// Inserts the areas of the clipboard. One whose name there is already gets another one, and lies beside the first.
    void sltPasteAOIs();

private:
    bool isReady() const { return m_model && m_window; }
    AoiPlace place() const;
    void connectForm();
    void openDialog(std::unique_ptr<AOI_PopUp> dialog);
    AreaOfInterest withFreeName(AreaOfInterest aoi) const;
    QList<AreaOfInterest> listedAois() const;

    std::unique_ptr<Ui::AoiControl> m_ui;
    DataModel *m_model = nullptr;
    IMainWindow *m_window = nullptr;
    QList<QPointer<AOI_PopUp>> m_dialogs; ///< owned; they end by themselves when closed
    AoiFileChooser m_chooseSaveFile;
    AoiFileChooser m_chooseLoadFile;
};
