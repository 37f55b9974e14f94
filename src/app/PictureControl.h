// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/saliency/SaliencyOverlay.h"
#include "commands/IMainWindow.h"
#include "import/scene/QGraphicSceneOverlay.h"
#include "model/DataModel.h"
#include "visualization/heatmap/HeatmapFigures.h"
#include "visualization/scene/Background.h"
#include "visualization/scene/DrawingPass.h"
#include "visualization/selection/DrawingContext.h"

#include <QObject>
#include <QPixmap>
#include <QTransform>

class QGraphicsPixmapItem;
class Timeline;

namespace Ui {
class Vistrum;
}

/// The middle of the window: the picture behind the drawing, the drawing itself, and when both are made anew.
class PictureControl : public QObject {
    Q_OBJECT
public:
    /// @param form    the widgets of the window.
    /// @param window  parent of dialogs; outlives this, like the others.
    PictureControl(const Ui::Vistrum &form, DataModel &model, QWidget &window);

    QGraphicSceneOverlay &scene() { return m_scene; }
    const QPixmap &background() const { return m_backgroundPixmap; }
    /// Of the background, in the scene, px.
    QRectF backgroundArea() const;
    /// Whether the background is a picture that can be shown, and not the plain one.
    bool hasStimulus() const;
    /// Path of the picture that is chosen; empty for the plain background.
    QString chosenPicture() const;
    /// Size of the picture at whose edges the samples were cut; empty if they never were.
    QSizeF cutPicture() const { return m_cutPicture; }
    /// Whether the scale of the view is that of the last *Fit to Screen*.
    bool isFitted() const;
    /// Of the heatmaps that were drawn last.
    const QList<HeatmapFigures> &figures() const { return m_figures; }

    DrawingRecords records() const;
    /// What is drawn now.
    DrawingContext context() const;
    /// What lies below and above it. Saliency that takes its time can be stopped, and is none then.
    SceneLayers layers();

    void redraw();
    /// From here to as many calls of `release` nothing is drawn, the table of examinations included.
    void hold();
    void release();
    /// The background is made anew if it is the plain one.
    void refreshPlain();

public Q_SLOTS:
    void sltUpdateImageView(int index);
    void sltUpdateBorder();
    void sltCutData(int state);
    void sltImportPicture();
    /// The picture, and a chart where one stands beside it.
    void sltFitToScreen();
    void sltOriginalSize();
    /// Recordings were imported: outliers, time span and picture follow.
    void sltDrawPaths();
    void sltUpdateAndRedraw();
    /// The timeline has another size: its curves are made anew.
    void update_timeline_widget();
    /// Draws the heatmap of a kind of data, 0 to 3, over everything, on the scale of its own maximum.
    void sltExportheatmap(int id);
    /// The list of pictures to choose from follows the model.
    void rebuildImageList();

Q_SIGNALS:
    void aboutToDraw();
    void told(const Notice &notice);
    /// What was told holds no longer.
    void withdrawn(const Notice &notice);

private:
    void followPanels();
    void chooseBackground(int index);
    void followPicture(const QString &path);
    void cutOrRestoreOutliers();
    void followCommands(int index);
    QRectF areaToShow() const;
    void followSize();
    void followChart();
    QImage saliencyOverlay();
    SceneLayers layers(const QImage &saliency) const;
    Timeline &timeline() const;

    const Ui::Vistrum &m_form;
    DataModel &m_model;
    QWidget &m_window;
    QGraphicSceneOverlay m_scene;
    PictureReader m_pictures;
    QPixmap m_backgroundPixmap;
    QGraphicsPixmapItem *m_background = nullptr; ///< owned by the scene
    QString m_missedPicture;                     ///< told to be unreadable
    Notice m_missedNotice;                       ///< that tells it
    QSizeF m_cutPicture;
    QList<HeatmapFigures> m_figures;
    SaliencyOverlay m_saliency;
    int m_commandIndex;                ///< on the undo stack, when it was last followed
    int m_holds = 0;                   ///< not drawn while there are any
    bool m_hasChart = false;           ///< beside the picture
    QTransform m_fittedScale;          ///< of the view, when it was last fitted
    QSize m_fittedSize;                ///< of the picture at that time
    bool m_isMissed = false;           ///< a redraw, meanwhile
    bool m_toldMissingPicture = false; ///< that saliency needs one
    bool m_skipOutlierCut = true;      ///< false while the next background has to cut or restore the outliers
};
