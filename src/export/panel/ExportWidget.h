// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/panel/StatisticsExportBox.h"
#include "export/panel/VisualizationExportBox.h"

#include <QWidget>

#include <memory>

class DataModel;
class QCheckBox;

namespace Ui {
class ExportWidget;
}

/// Writes what was computed into table files. A kind of table can be chosen once there is something to write of it.
class ExportWidget : public QWidget {
    Q_OBJECT
public:
    explicit ExportWidget(QWidget *parent = nullptr);
    ~ExportWidget() override;

    /// @param model  must outlive the widget and the undo stack's use; until one is set nothing is exported.
    void setModel(DataModel *model);

    /// Which tables of transitions are chosen.
    TransitionChoice transitionChoice() const;

    /// How pictures are to look.
    PictureSettings pictureSettings() const;
    /// Time that each image of a video shows.
    int videoStepMs() const;
    VisualizationExportBox &visualizationBox();

Q_SIGNALS:
    /// The tables of transitions, and those of the anglestar, with what their paths begin with.
    void sigExport_aoi_trans_csv(const QString &stem);
    void sigExport_anglestar(const QString &stem);

    /// A picture of the scene, and charts, with the name of the file.
    void sigExportVisualization(const QString &path);
    void sigExport_video(const QString &path);
    void sigExport_aoi_trans_Visualization(const QString &path);
    void sigExportSaccadenHistogram(const QString &path);
    void sigExportSaccadenHistogramsep(const QString &path);
    void sigExportSaccadenFixationenHistogramsep(const QString &path);
    void sigExportFixationHistogram(const QString &path);
    void sigExportFixationHistogramsep(const QString &path);
    void sigExportTimeTransHistogram(const QString &path);
    void sigExportAOIFixationHistogram(const QString &path);
    void sigExportAOITransitionHistogram(const QString &path);
    void sigExportAOIFixationShareHistogram(const QString &path);

public Q_SLOTS:
    /// Pushes a command for each check box that is on, in the order of the form.
    void sltExportData();
    void sltBrowseDataExportFolder();
    /// Fixations were calculated, or their check box was clicked: it can be chosen, and the button follows.
    void sltEnableFixationExport();
    void sltEnableFixationClusterExport();
    void sltEnableEventExport();
    void sltEnableCumulativeClusterExport();
    /// There are samples.
    void sltEnableSampleExport();
    /// The same for statistics.
    void sltExportStatistics();
    void sltBrowseStatisticExportFolder();
    /// Each asks for a file or a folder.
    void sltExportVisualization();
    void sltExportAOIImages();
    void sltExportVideo();
    void sltExportAOITransitionGraph();
    void sltExportSaccadenHistogram();
    void sltExportSaccadenHistogramsep();
    void sltExportSaccadenFixationHistogram();
    void sltExportFixationHistogram();
    void sltExportFixationHistogramsep();
    void sltExportTimeTransHistogram();
    void sltExportAOIFixationHistogram();
    void sltExportAOITransitionHistogram();
    /// There is something to write of a kind of statistics.
    void sltEnableGeneralStatisticsExport();
    void sltEnableAOIstatsExport();
    void sltEnable_AOI_trans_matrix_export();
    void sltEnableClusterstatsExport();
    void sltEnableCUMMClusterstatsExport();
    void sltEnableAnglestarExport();
    void sltEnableQualityExport();
    /// Stores a choice, a Qt::CheckState, for which the form has no control.
    void sltExportAppendInfo(int state);

private:
    void enable(QCheckBox *kind);
    void askForChart(const QString &kind, const QString &path);

    std::unique_ptr<Ui::ExportWidget> m_ui;
    DataModel *m_model = nullptr;
};
