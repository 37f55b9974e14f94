// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/saliency/SaliencyOverlay.h"
#include "base/Log.h"
#include "commands/IMainWindow.h"
#include "import/scene/QGraphicSceneOverlay.h"
#include "model/DataModel.h"
#include "visualization/heatmap/HeatmapFigures.h"
#include "visualization/scene/Background.h"
#include "visualization/selection/DrawingContext.h"

#include <QMainWindow>
#include <QPixmap>

#include <functional>
#include <memory>

class ExaminationTableControl;
class NoticeLine;
class Recorders;
class SessionRecord;
class add_heatmap_aoi;
class Timeline;
class QGraphicsPixmapItem;
class add_diagram;
struct ChordData;
struct MethodsRun;
struct ReportRecords;

namespace Ui {
class Vistrum;
}

/// The main window: creates, connects and owns the panels, the model and the scene, and decides when the picture is
/// drawn anew.
class Vistrum : public QMainWindow, public IMainWindow {
    Q_OBJECT
public:
    explicit Vistrum(QWidget *parent = nullptr);
    ~Vistrum() override;

    const DataModel &model() const { return m_model; }
    /// In place of the browser.
    void setPageOpener(const std::function<void(const QUrl &)> &open) { m_openPage = open; }

    /// Adds recordings to the list of files and imports them: files, and what lies in folders. Other files open the
    /// assistant.
    void importFiles(const QStringList &paths);

    /// Puts the window where it was left, as large as it was.
    /// @return false at the first start.
    bool restorePlace();

    /// Saves what was done and not undone; tells where, and what a replay leaves out.
    void saveRecipe(const QString &path);

    void addTableRow(const Examination &examination) override;
    void removeTableRows(const QList<int> &numbers) override;
    void refreshPlainBackground() override;
    void showImported() override;
    int stimulusWidthPx() const override;
    QPixmap stimulus() const override { return m_backgroundPixmap; }
    void tell(const Notice &notice) override;
    bool hasStimulus() const override;
    void redraw() override;
    void updateAndRedraw() override;
    void holdRedraw() override;
    void releaseRedraw() override;

Q_SIGNALS:
    void sigUpdateSettings();
    void sigEnable_trans_matrix_export();
    void sigEnable_fixation_export();
    void sigEnable_cumulativecluster_export();
    void sigEnable_event_export();
    void sigEnable_fixationcluster_export();
    void sigSetSaccadeClusterStatusNone();

public Q_SLOTS:
    void sltCalculateFixations();
    void sltCalculateClusters();
    void sltCalculateCumulativeClusters();
    void sltCalculateGeneralStatistics();
    void sltCalcAOIStats();
    void sltDrawPaths();
    void sltUpdateAndRedraw();

    void sltFitToScreen();
    void sltOriginalSize();
    void sltUpdateBorder();
    void sltUpdateImageView(int index);
    void sltCutData(int state);
    void sltAddAOIsHeatmap();
    void sltAddAOIsGrid();
    void sltShowTable(bool shown);
    void sltShowTimeline(bool shown);
    /// The timeline has another size: its curves are made anew.
    void update_timeline_widget();
    /// Puts the detached timeline back above the picture.
    void slt_reinsert_timeline(QWidget *timeline);
    void sltImportPicture();
    /// Draws the heatmap of a kind of data, 0 to 3, over everything, on the scale of its own maximum.
    void sltExportheatmap(int id);

    /// The tables of transitions that the export panel has chosen, of the eyes that are shown.
    void sltexport_aoi_trans_csv(const QString &stem);
    void sltexport_anglestar(const QString &stem);

    /// The scene as it is shown.
    void sltExportImage(const QString &path);
    void sltexport_video(const QString &path);
    /// The chord diagram of the transitions between areas.
    void sltExport_aoi_trans_vis_Image(const QString &path);
    // Charts of what the panels choose.
    void sltExportSaccadenHistogram(const QString &path);
    void sltExportSaccadenHistogramsep(const QString &path);
    void sltExportSaccadenFixationHistogramsep(const QString &path);
    void sltExportFixationHistogram(const QString &path);
    void sltExportFixationHistogramsep(const QString &path);
    void sltExportAOITimeTransHistogram(const QString &path);
    void sltExportAOIFixationHistogram(const QString &path);
    void sltExportAOITransitionHistogram(const QString &path);
    void sltExportAOIFixationShareHistogram(const QString &path);

    /// Opens a recorder in a window of its own.
    void sltEyeTribeRecorder();

    /// Asks for a file and saves the steps of this work for the batch program.
    void sltSaveRecipe();
    /// What was done, as a text for a paper.
    void sltShowMethods();

    void sltSaveRegistry();
    void sltImportRegistry();
    void sltLoadDefaultSettings();
    /// Asks first.
    void sltResetSettings();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void makeTable();
    void makeMenus();
    void connectForm();
    void connectPanels();
    void chooseBackground(int index);
    void connectStatistics();
    void connectAreas();
    void connectExports();
    void exportChart(const QString &kind, const QString &path);
    ReportRecords reportRecords() const;
    MethodsRun methodsRun() const;
    void makeSession();
    void noteTransitions(const QString &stem);
    void noteTable(const QString &word, const QString &stem);
    ChordData diagram() const;
    void followAreas();
    void showDiagram();
    void connectCorrection();
    std::function<void(QGraphicsScene &)> correctionOverlay() const;
    void cutOrRestoreOutliers();
    void followCommands(int index);
    void followPicture(const QString &path);
    Timeline &timeline() const;
    DrawingRecords drawingRecords() const;
    DrawingContext drawingContext() const;
    QImage saliencyOverlay();
    void refreshGroups();
    void rebuildImageList();

    Log m_log;
    DataModel m_model;
    QGraphicSceneOverlay m_scene;
    ExaminationTableControl *m_table = nullptr;  ///< a child
    NoticeLine *m_notice = nullptr;              ///< a child
    SessionRecord *m_session = nullptr;          ///< a child
    QSizeF m_cutPicture;                         ///< whose edges the samples were cut at
    QString m_missedPicture;                     ///< told to be unreadable
    QGraphicsPixmapItem *m_background = nullptr; ///< owned by the scene
    PictureReader m_pictures;
    QPixmap m_backgroundPixmap;
    QList<HeatmapFigures> m_figures; ///< of the last drawing
    int m_commandIndex = 0;          ///< on the undo stack, when it was last followed
    SaliencyOverlay m_saliency;
    bool m_toldMissingPicture = false; ///< that saliency needs one
    std::unique_ptr<add_heatmap_aoi> m_regionDialog;
    std::unique_ptr<add_diagram> m_diagram;
    std::function<void(const QUrl &)> m_openPage; ///< in the browser
    std::unique_ptr<Recorders> m_recorders;
    bool m_skipOutlierCut = true; ///< false while the next background update has to cut or restore the outliers
    int m_redrawHolds = 0;        ///< not drawn while there are any
    bool m_redrawMissed = false;  ///< meanwhile
    std::unique_ptr<Ui::Vistrum> m_ui;
};
