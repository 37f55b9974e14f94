// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/shapes/SaccadeClusterShapes.h"

#include <QPointer>
#include <QWidget>

#include <memory>

namespace Ui {
class VisualizationSaccadeClustersWidget;
}
class QGraphicsItemGroup;
class QGraphicsScene;
class SaccadeClusterModel;

/// The panel that shows how saccade clusters are drawn, and draws them over the scene. Every change is drawn at once;
/// nothing of it is stored or can be undone.
///
/// All its items are in one group, to which the panel keeps a pointer: whoever clears the scene draws `arrows` again
/// and hands the new group over.
class VisualizationSaccadeClustersWidget : public QWidget {
    Q_OBJECT
public:
    explicit VisualizationSaccadeClustersWidget(QWidget *parent = nullptr);
    /// Takes the group out of the scene, if that is still there.
    ~VisualizationSaccadeClustersWidget() override;

    /// Where the clusters are drawn; not owned, may go before the panel. Without a scene nothing is drawn.
    void setScene(QGraphicsScene *scene);
    /// What is drawn; may be null. To be drawn by the next redraw.
    void setClusters(std::shared_ptr<const SaccadeClusterModel> clusters) { m_clusters = std::move(clusters); }

    /// Takes the group out of the scene, if it is there, and forgets it.
    void removeClusters();

    /// What there is to draw now.
    QList<ArrowShape> arrows() const;
    /// Takes the group of the arrows over, in place of one that is gone with the items of the scene; null for none.
    void adoptGroup(QGraphicsItemGroup *group) { m_group = group; }

    SaccadeClusterMode mode() const { return m_mode; }
    const SaccadeClusterStyle &style() const { return m_style; }
    int fillOpacity() const { return m_fillOpacity; }
    bool showGazePoints() const { return m_showGazePoints; }
    /// The items of the last drawing, null if it drew nothing.
    const QGraphicsItemGroup *itemGroup() const { return m_group; }

public Q_SLOTS:
    // Each keeps the value and draws anew.
    void sltVisualizationModeChanged(int mode);
    /// In percent. Kept for the interface: no mode fills anything.
    void sltFillOpacityChanged(int percent);
    void sltLineWidthChanged(int widthPx);
    /// Kept for the interface: no mode draws points.
    void sltShowGazePointsChanged(bool shown);
    void sltShowArrowTipsChanged(bool shown);
    void sltMinQuantityChanged(int quantity);

    /// Draws the clusters anew, on top of what the scene holds.
    void sltRedrawClusters();

private:
    template <class T>
    void change(T &field, T value);

    std::unique_ptr<Ui::VisualizationSaccadeClustersWidget> m_ui;
    std::shared_ptr<const SaccadeClusterModel> m_clusters;
    QPointer<QGraphicsScene> m_scene;
    QGraphicsItemGroup *m_group = nullptr; ///< owned by the scene
    SaccadeClusterMode m_mode = SaccadeClusterMode::None;
    SaccadeClusterStyle m_style;
    int m_fillOpacity = 100; ///< percent
    bool m_showGazePoints = false;
};
