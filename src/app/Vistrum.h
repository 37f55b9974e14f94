#pragma once

#include "aoi/saliency/SaliencyOverlay.h"
#include "base/Log.h"
#include "commands/IMainWindow.h"
#include "model/DataModel.h"
#include "visualization/scene/Background.h"
#include "visualization/selection/DrawingContext.h"

#include <QGraphicsScene>
#include <QMainWindow>
#include <QPixmap>

#include <array>
#include <memory>

class ExaminationTableControl;
class add_heatmap_aoi;
class Timeline;
class QGraphicsPixmapItem;

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

    void addTableRow(const Examination &examination) override;
    void removeTableRows(const QList<int> &numbers) override;
    void refreshPlainBackground() override;
    void showImported() override;
    int stimulusWidthPx() const override;
    QPixmap stimulus() const override { return m_backgroundPixmap; }
    bool hasStimulus() const override;
    void redraw() override;
    void updateAndRedraw() override;
    void holdRedraw() override;
    void releaseRedraw() override;

Q_SIGNALS:
    void sigUpdateSettings();
    void sigEnable_fixation_export();
    void sigEnable_cumulativecluster_export();
    void sigEnable_event_export();
    void sigEnable_fixationcluster_export();
    void sigSetSaccadeClusterStatusNone();

public Q_SLOTS:
    void sltCalculateFixations();
    void sltCalculateClusters();
    void sltCalculateCumulativeClusters();
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

    void sltSaveRegistry();
    void sltImportRegistry();
    void sltLoadDefaultSettings();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void makeTable();
    void connectForm();
    void connectPanels();
    void connectAreas();
    void cutOrRestoreOutliers();
    Timeline &timeline() const;
    std::array<const VisualizationParameters *, 4> drawingParameters() const;
    DrawingContext drawingContext() const;
    QImage saliencyOverlay();
    void refreshGroups();
    void rebuildImageList();

    Log m_log;
    DataModel m_model;
    QGraphicsScene m_scene;
    ExaminationTableControl *m_table = nullptr;  ///< a child
    QGraphicsPixmapItem *m_background = nullptr; ///< owned by the scene
    PictureReader m_pictures;
    QPixmap m_backgroundPixmap;
    SaliencyOverlay m_saliency;
    bool m_toldMissingPicture = false; ///< that saliency needs one
    std::unique_ptr<add_heatmap_aoi> m_regionDialog;
    bool m_skipOutlierCut = true; ///< false while the next background update has to cut or restore the outliers
    int m_redrawHolds = 0;        ///< not drawn while there are any
    bool m_redrawMissed = false;  ///< meanwhile
    std::unique_ptr<Ui::Vistrum> m_ui;
};
