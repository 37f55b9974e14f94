// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Eye.h"

#include <QWidget>

#include <array>
#include <memory>

class AoiControl;
class ClusterControl;
class CorrectionControl;
class DataModel;
class DataWidget;
class ExportWidget;
class FixationControl;
class IMainWindow;
class Log;
class SaccadeClusterControl;
class StatisticsWidget;
class VisualizationAOIWidget;
class VisualizationSaccadeClustersWidget;
class VisualizationWidget;

namespace Ui {
class controlWidget;
}

/// The right pane of the main window: owns the panels, in tabs and tool boxes, and the fields of time frame and eye.
class controlWidget : public QWidget {
    Q_OBJECT
public:
    explicit controlWidget(QWidget *parent = nullptr);
    ~controlWidget() override;

    void setModel(DataModel *model);
    void setMainWindow(IMainWindow *window);
    void setLog(const Log *log);

    DataWidget &dataWidget();
    FixationControl &fixationControl();
    ClusterControl &clusterControl();
    SaccadeClusterControl &saccadeClusterControl();
    AoiControl &aoiControl();
    CorrectionControl &correctionControl();
    StatisticsWidget &statisticsWidget();
    ExportWidget &exportWidget();
    VisualizationSaccadeClustersWidget &saccadeClustersWidget();
    VisualizationAOIWidget &areasWidget();

    /// The method of the saliency page; 0 is none.
    int saliencyMethod() const;

    /// The panels of gaze points, fixations, fixation clusters and saccades.
    std::array<VisualizationWidget *, 4> visualizationWidgets() const;

Q_SIGNALS:
    void sigGraphicsParametersChanged();
    /// The user typed a time frame, in ms.
    void sigUpdateTimeframe(qint64 start, qint64 end);

    void sigUpdateTime();

    void sigAddAOIsHeatmap();
    void sigAddAOIsGrid();

    // Part of the panel's interface; the panel itself does not emit them.
    void sigShowTable(bool shown);
    void sigShowZoom(bool shown);
    void sigShowVideoControl(bool shown);
    void sigShowTimeline(bool shown);
    void sigUpdateImageView(int index);
    void sigCheck();
    void sigUncheck();
    void sigSortBy(int column);
    void sigCalcAOItrans();

public Q_SLOTS:
    /// Follows a move of the timeline: fields and model get the frame, in ms.
    void sltTimelineHasChanged(qint64 start, qint64 end);
    /// The timeline got another length, in ms.
    void sltTimespanHasChanged(qint64 duration);
    /// Shows the stored choice of eyes, without drawing.
    void sltUpdateSettings();
    void sltUpdateTime() { Q_EMIT sigUpdateTime(); }
    /// Asks for the picture anew.
    void sltEmitGraphicChanged() { Q_EMIT sigGraphicsParametersChanged(); }
    /// A duration with its unit, as `text::timeText` writes it.
    QString time2specific_String(qint64 durationMs) const;
    /// Opens a further view of the undo stack in a window of its own.
    void sltShowCommandProcessor();

private:
    void connectControls();
    void sltTimeSpinboxChanged();
    void sltEyeModeChanged(int index);
    void sltSetSalButtons();
    void sltSetSalVal();
    void write(const QString &line) const;

    std::unique_ptr<Ui::controlWidget> m_ui;
    DataModel *m_model = nullptr;
    const Log *m_log = nullptr;
};
